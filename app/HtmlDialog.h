#pragma once

class QDialog;
class QString;
class QTextBrowser;

/// What the dialogs with one HTML message have in common: shows @p html in @p browser of the freshly built
/// @p dialog, logs it behind @p logPrefix, lets links to the web and to mail open outside, and titles the dialog with
/// the application's display name. The HTML may come from the network: nothing that it names is loaded.
void setUpHtmlDialog(QDialog &dialog, QTextBrowser &browser, const QString &logPrefix, const QString &html);
