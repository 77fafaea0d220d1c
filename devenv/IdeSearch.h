#pragma once

#include "devenv/VisualStudioVersion.h"

/// Looks for the IDE of @p version below its product directory and sets its name and path. When there is
/// none, both keep their values. Logs each path that was tried.
void findIdeExecutable(VisualStudioVersion &version);
