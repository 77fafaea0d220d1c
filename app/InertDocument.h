#pragma once

#include <QTextDocument>

class QFont;

/// A text document of HTML that somebody else wrote. It keeps the words, their form and their links, and loads
/// nothing: images, style sheets, backgrounds and tool tips, which may name files or network shares, are not in it. HTML
/// that would take Qt seconds, because it is long, has tables deep in one another or very wide cells, is shown as plain
/// text.
class InertDocument : public QTextDocument {
    Q_OBJECT

public:
    /// @p font is that of the words for which @p html says nothing else.
    InertDocument(const QString &html, const QFont &font, QObject *parent = nullptr);

protected:
    /// Nothing, whatever is asked for: style sheets and backgrounds are while the HTML is read.
    QVariant loadResource(int type, const QUrl &name) override;
};
