#include "app/InertDocument.h"

#include <QFontMetricsF>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextFrame>

#include <algorithm>
#include <vector>

namespace {

// Lengths of which HTML can give any number of pixels. Beyond what its fixed-point numbers hold, Qt lays out
// text forever.
constexpr int lengths[] = {
    QTextFormat::BlockTopMargin,       QTextFormat::BlockBottomMargin,
    QTextFormat::LineHeight,           QTextFormat::FrameMargin,
    QTextFormat::FrameTopMargin,       QTextFormat::FrameBottomMargin,
    QTextFormat::FramePadding,         QTextFormat::FrameBorder,
    QTextFormat::TableCellSpacing,     QTextFormat::TableCellPadding,
    QTextFormat::TableCellTopPadding,  QTextFormat::TableCellBottomPadding,
    QTextFormat::TableCellLeftPadding, QTextFormat::TableCellRightPadding,
    QTextFormat::TableCellTopBorder,   QTextFormat::TableCellBottomBorder,
    QTextFormat::TableCellLeftBorder,  QTextFormat::TableCellRightBorder,
    QTextFormat::FontPixelSize,        QTextFormat::FontPointSize,
};
constexpr double greatestLength = 100;

/// Removes from @p format what makes Qt access a file when the text is drawn, copied or hovered over, and
/// limits what would make it lay out the document forever. Returns whether anything was changed.
bool disarm(QTextFormat &format)
{
    bool changed = false;
    for (const int property : lengths) {
        const double length = format.doubleProperty(property);
        if (!(length >= 0 && length <= greatestLength)) {
            format.setProperty(property, greatestLength);
            changed = true;
        }
    }
    // A height, which only frames have, counts less than what is in them. A tool tip is rich text, too.
    for (const int property :
         {QTextFormat::FrameHeight, QTextFormat::BackgroundImageUrl, QTextFormat::TextToolTip}) {
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
    // A block's format is that of the character before it; at the begin of a cell it is the cell's.
    QTextCharFormat format = block.charFormat();
    if (disarm(format)) {
        cursor.setBlockCharFormat(format);
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

void disarmFrames(QTextFrame &frame)
{
    QTextFrameFormat format = frame.frameFormat();
    if (disarm(format)) {
        frame.setFrameFormat(format);
    }
    const auto children = frame.childFrames();
    for (QTextFrame *child : children) {
        disarmFrames(*child);
    }
}

// Beyond these limits Qt takes seconds or longer to parse or lay out the HTML: it looks at all open elements
// and at all rules of a style sheet for each element, and at the whole table for each of its cells.
constexpr int longestHtml = 65536;
constexpr int mostTags = 1000;
constexpr int mostTableTags = 100;
constexpr int mostStyling = 60000; // characters of style sheets for each tag, in all
constexpr int deepestNesting = 8;
// Qt never finishes a line that begins beyond 8,388,607 pixels. The margins and borders of 1,000 elements of
// at most 100 pixels each come to what is missing.
constexpr double highestText = 4000000;

/// How many characters of @p html may belong to style sheets.
int styleSheetSize(const QString &html)
{
    const QLatin1String opening("<style");
    const int begin = html.indexOf(opening, 0, Qt::CaseInsensitive);
    const int end = html.lastIndexOf(QLatin1String("</style"), -1, Qt::CaseInsensitive);
    const bool closed = end > html.lastIndexOf(opening, -1, Qt::CaseInsensitive);
    return begin < 0 ? 0 : (closed ? end : html.size()) - begin;
}

bool isTooMuchToRead(const QString &html)
{
    // Digits can be written as entities.
    static const QRegularExpression wideCell(
        QStringLiteral(R"((col|row)span\s*=\s*["']?\s*(\d{2}|[^\s"'>]*&))"),
        QRegularExpression::CaseInsensitiveOption);
    const int tags = html.count(QLatin1Char('<'));
    return html.size() > longestHtml || tags > mostTags || styleSheetSize(html) * tags > mostStyling ||
           html.count(QLatin1String("<t"), Qt::CaseInsensitive) > mostTableTags || html.contains(wideCell);
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

/// How high the text can become: each character may be in a line of its own.
double greatestHeight(const QTextDocument &document)
{
    double height = 0;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        double highest = QFontMetricsF(block.charFormat().font()).height();
        for (auto each = block.begin(); !each.atEnd(); ++each) {
            highest = std::max(highest, QFontMetricsF(each.fragment().charFormat().font()).height());
        }
        // Characters that the font lacks come from others, which may be twice as high.
        height += block.length() * block.blockFormat().lineHeight(2 * highest, 1) +
                  block.blockFormat().topMargin() + block.blockFormat().bottomMargin();
    }
    return height;
}

} // namespace

InertDocument::InertDocument(const QString &html, const QFont &font, QObject *parent) : QTextDocument(parent)
{
    setUndoRedoEnabled(false);
    setDefaultFont(font);
    if (isTooMuchToRead(html)) {
        setPlainText(html.left(longestHtml));
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
    if (greatestHeight(*this) > highestText) {
        setPlainText(toPlainText());
    }
}

QVariant InertDocument::loadResource(int /*type*/, const QUrl & /*name*/)
{
    return {};
}
