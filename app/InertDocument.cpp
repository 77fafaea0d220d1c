#include "app/InertDocument.h"

#include <QRegularExpression>
#include <QTextBlock>
#include <QTextFrame>
#include <QTextTable>

#include <algorithm>
#include <vector>

namespace {

/// Removes from @p format what makes Qt access a file when the text is drawn, copied or hovered over. Returns
/// whether anything was removed.
bool disarm(QTextFormat &format)
{
    bool changed = false;
    // A tool tip is rich text, too.
    for (const int property : {QTextFormat::BackgroundImageUrl, QTextFormat::TextToolTip}) {
        if (format.hasProperty(property)) {
            format.clearProperty(property);
            changed = true;
        }
    }
    return changed;
}

/// A run of characters of one format in a block.
struct Run {
    int position; ///< in the document
    int length;
    QTextCharFormat format;
};

void disarmText(const QTextBlock &block)
{
    QTextCursor cursor(block);
    QTextBlockFormat blockFormat = block.blockFormat();
    if (disarm(blockFormat)) {
        cursor.setBlockFormat(blockFormat);
    }
    QTextCharFormat emptyFormat = block.charFormat();
    if (disarm(emptyFormat)) {
        cursor.setBlockCharFormat(emptyFormat);
    }

    // Changes invalidate fragments, so they are collected first.
    std::vector<Run> runs;
    for (auto each = block.begin(); !each.atEnd(); ++each) {
        const QTextFragment fragment = each.fragment();
        runs.push_back({fragment.position(), fragment.length(), fragment.charFormat()});
    }
    // Backwards, so that the remaining positions stay valid.
    for (auto run = runs.rbegin(); run != runs.rend(); ++run) {
        cursor.setPosition(run->position);
        cursor.setPosition(run->position + run->length, QTextCursor::KeepAnchor);
        if (run->format.isImageFormat()) {
            cursor.removeSelectedText();
        } else if (disarm(run->format)) {
            cursor.setCharFormat(run->format);
        }
    }
}

void disarmCells(QTextTable &table)
{
    for (int row = 0; row < table.rows(); ++row) {
        for (int column = 0; column < table.columns(); ++column) {
            QTextTableCell cell = table.cellAt(row, column);
            QTextCharFormat format = cell.format();
            if (disarm(format)) {
                cell.setFormat(format);
            }
        }
    }
}

void disarmFrames(QTextFrame &frame)
{
    QTextFrameFormat format = frame.frameFormat();
    if (disarm(format)) {
        frame.setFrameFormat(format);
    }
    if (auto *table = qobject_cast<QTextTable *>(&frame)) {
        disarmCells(*table);
    }
    const auto children = frame.childFrames();
    for (QTextFrame *child : children) {
        disarmFrames(*child);
    }
}

// Beyond these limits Qt takes seconds or longer to parse or lay out the HTML.
constexpr int longestHtml = 65536;
constexpr int deepestNesting = 8;

bool isTooMuchToRead(const QString &html)
{
    static const QRegularExpression wideCell(QStringLiteral(R"((col|row)span\s*=\s*["']?\s*\d{3})"),
                                             QRegularExpression::CaseInsensitiveOption);
    return html.size() > longestHtml || html.contains(wideCell);
}

/// The greatest depth to which frames and tables are nested.
int depthOf(const QTextFrame &frame)
{
    int deepest = 0;
    const auto children = frame.childFrames();
    for (const QTextFrame *child : children) {
        deepest = std::max(deepest, depthOf(*child));
    }
    return deepest + 1;
}

} // namespace

InertDocument::InertDocument(const QString &html, const QFont &font, QObject *parent) : QTextDocument(parent)
{
    setUndoRedoEnabled(false);
    setDefaultFont(font);
    if (isTooMuchToRead(html)) {
        setPlainText(html);
        return;
    }
    setHtml(html);
    if (depthOf(*rootFrame()) > deepestNesting) {
        setPlainText(toPlainText());
        return;
    }
    // In one edit block: an update after each change would take quadratic time.
    QTextCursor edit(this);
    edit.beginEditBlock();
    for (QTextBlock block = begin(); block.isValid(); block = block.next()) {
        disarmText(block);
    }
    disarmFrames(*rootFrame());
    edit.endEditBlock();
}

QVariant InertDocument::loadResource(int /*type*/, const QUrl & /*name*/)
{
    return {};
}
