#pragma once

#include "devenv/VisualStudioVersion.h"

/// Looks for the IDE of @p version below its product directory and sets its name and path. When there is none, both
/// keep their values. Each path that was tried goes to the debug log.
void findIdeExecutable(VisualStudioVersion &version);
