#pragma once

#include "settings/Setting.h"

#include <cstdint>

// The settings of the live position upload under SOFTWARE\Omvale\Fendix, declared once.
//
// The service host of the default addresses is this machine: a user who runs the service (or a
// Traccar server) on the same computer needs to change nothing; for another server the three
// addresses are edited on the page or with `tarvik-tool reg set`.
namespace LiveposSettings {
#define TARVIK_LIVEPOS_HOST "http://localhost"
inline constexpr const char* kServiceHost = TARVIK_LIVEPOS_HOST;

inline constexpr Setting<const char*> kNickName{"LiveposNickName", "", false};
inline constexpr Setting<const char*> kPassword{"LiveposPassword", "", false}; // sent as typed
inline constexpr Setting<const char*> kComment{"LiveposComment", "", false};
inline constexpr Setting<int32_t> kSendEvery{"LiveposSendEvery", 0, false}; // seconds; 0 = sending off
inline constexpr Setting<const char*> kSearchNickName{"LiveposSearchNickName", "", false};
inline constexpr Setting<const char*> kSearchPassword{"LiveposSearchPassword", "", false};
inline constexpr Setting<const char*> kUrlSendPos{
    "LiveposUrlSendPos",
    TARVIK_LIVEPOS_HOST "/Livepos/sendpos.php?Name=%NickName%&PW=%PassWD%&Long=%Long:2%&Lat=%Lat:2%"
                        "&GPSTime=%GPSTime%&Comment=%Comment%",
    false};
inline constexpr Setting<const char*> kUrlGetPos{
    "LiveposUrlGetPos", TARVIK_LIVEPOS_HOST "/Livepos/getpos.php?Name=%NickName%&PW=%PassWD%", false};
inline constexpr Setting<const char*> kHomeUrl{"LiveposHomeUrl", TARVIK_LIVEPOS_HOST "/Livepos", false};

// Failed sends wait in the offline queue and go out, latest first, when the server answers again.
inline constexpr Setting<bool> kQueue{"LiveposQueue", true, false};
// The Traccar server the page's switch writes into the send template (OsmAnd protocol, port 5055).
inline constexpr Setting<const char*> kTraccarServer{"LiveposTraccarServer", "http://localhost:5055", false};
#undef TARVIK_LIVEPOS_HOST
} // namespace LiveposSettings
