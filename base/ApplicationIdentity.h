#pragma once

/// Gives the application object its name, version and organisation. They select the per-user settings store
/// and title the dialogs.
void setApplicationIdentity();
