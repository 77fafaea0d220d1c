#pragma once

#include <QTextDocument>

class QFont;

/// A text document for untrusted HTML. It keeps text, formatting and links, and loads nothing: it drops
/// images, style sheets, backgrounds and tool tips, which may name files or network shares. HTML that would
/// take Qt seconds (too long, too many tags, large or deeply nested tables) is shown as plain text.
class InertDocument : public QTextDocument {
    Q_OBJECT

public:
    /// @p font applies where @p html sets no other.
    InertDocument(const QString &html, const QFont &font, QObject *parent = nullptr);

protected:
    /// Always returns nothing: Qt asks for style sheets and backgrounds while it parses the HTML.
    QVariant loadResource(int type, const QUrl &name) override;
};
