#pragma once

/// Tells every window that the system's environment has changed, and waits up to five seconds for each to
/// respond. False when that failed; then Windows' last error is set.
bool broadcastEnvironmentChange();
