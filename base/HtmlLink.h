#pragma once

#include <QString>

/// A link as this program shows links in rich text: blue and underlined. Both arguments are HTML already.
inline QString htmlLink(const QString &target, const QString &text)
{
    return QStringLiteral("<a href=\"") + target +
           QStringLiteral("\"><span style=\"text-decoration: underline; color:#0000ff;\">") + text +
           QStringLiteral("</span></a>");
}
