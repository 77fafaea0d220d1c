#pragma once

#include <QtGlobal>

/// How many handles of the kernel a process has open.
qint64 countHandles(void *process);

/// How many GDI objects a process has. Icons and cursors consist of such objects.
qint64 countGdiObjects(void *process);

/// How many windows a process has, visible or not, those inside others and those for messages alone included.
qint64 countWindows(unsigned long processId);

/// The memory that a process shares with no other.
qint64 privateKilobytes(void *process);
