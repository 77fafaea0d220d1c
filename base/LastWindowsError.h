#pragma once

#include <QString>

/// The system's message for the calling thread's last Windows error, or "Unknown Error" and its number. Call
/// it before anything else that could set the last error.
QString lastWindowsErrorText();
