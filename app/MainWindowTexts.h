#pragma once

#include <QString>

/// The rich text of the main window's footer, with the placeholders %1 to %5, which filledFooter() fills.
QString footerTemplate();

/// @p html, a footer template, with the application's identity for the placeholders %1 (maker and product),
/// %2 (version), %3 (the maker's home page), %4 (its shop) and %5 (product and version, percent-encoded).
QString filledFooter(const QString &html);

/// What is shown instead of the main window when no HALCON is installed, as rich text.
QString noInstallationHtml();
