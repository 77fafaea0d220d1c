#pragma once

#include <QString>

/// The system's text for the calling thread's last Windows error, or "Unknown Error" and its number. To be called
/// before anything else that could set the last error.
QString lastWindowsErrorText();
