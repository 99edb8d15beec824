#pragma once

// The calling thread's scheduling priority: normal, or below normal while the window is in the
// background ("LowPriority"). An unprivileged process may lower its priority but not raise it
// again, so lowering is refused (false) where raising back would not be allowed.
bool setCurrentThreadBelowNormal(bool below);
