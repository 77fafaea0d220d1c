#pragma once

class QPushButton;
struct VisualStudioVersion;

/// Shows those of the buttons that have something to start with @p version: the shell's for a build
/// environment, and the IDE's, with its program's icon, if that program exists now. Null for no version hides
/// the IDE's button and leaves the other as it is.
void showVisualStudioButtons(const VisualStudioVersion *version, QPushButton &shell, QPushButton &ide);
