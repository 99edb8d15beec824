#pragma once

// Modern receivers send "$GN" (combined), "$GL" (GLONASS), "$GA" (Galileo) or "$GB" (BeiDou)
// instead of "$GP", and marine instruments "$IN" (integrated navigation). With "AcceptAllTalkers" on, the fix
// sentences GGA, RMC, VTG, GLL and GSA of those talkers are rewritten to "$GP" in place, and a checksum
// behind "*" is recomputed, so that the interpreter and the log reader take them. Satellite views (GSV) of
// other constellations are left alone: they would overwrite the GPS satellite table. Returns true when the
// line changed.
bool rewriteTalkerToGp(char* line, int length);
