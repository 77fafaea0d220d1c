#pragma once

/// From now on libraries are looked for in the system's directory alone, and no error waits for somebody to see it. For
/// the start of a program: any other call might load a library. False when the system cannot do it. Windows only.
bool secureProcess();
