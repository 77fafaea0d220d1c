#pragma once

class QDialog;
class QString;
class QTextBrowser;

/// What the dialogs with one HTML message have in common: shows @p html in @p browser of the freshly built
/// @p dialog, logs it behind @p logPrefix, lets links open in the system's browser, and titles the dialog with the
/// application's display name.
void setUpHtmlDialog(QDialog &dialog, QTextBrowser &browser, const QString &logPrefix, const QString &html);
