#pragma once

class QDialog;
class QString;
class QTextBrowser;

/// Sets up a dialog with one HTML message: shows @p html in the @p browser of the new @p dialog, logs it with
/// @p logPrefix in front, lets web and mail links open outside, and titles the dialog with the application's
/// display name. The HTML may come from the network: nothing that it refers to is loaded.
void setUpHtmlDialog(QDialog &dialog, QTextBrowser &browser, const QString &logPrefix, const QString &html);
