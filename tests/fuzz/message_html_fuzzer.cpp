#include "app/InertDocument.h"

#include "tests/fuzz/FileWatch.h"
#include "tests/fuzz/QtFuzzing.h"

#include <QAbstractTextDocumentLayout>
#include <QFont>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextFrame>

namespace {

/// Reads HTML as Qt does by itself, and counts what it would load.
class Recorder : public QTextDocument {
public:
    Recorder(const QString &html, const QFont &font)
    {
        setUndoRedoEnabled(false);
        setDefaultFont(font);
        setHtml(html);
    }

    int requests() const { return counted; }

protected:
    QVariant loadResource(int /*type*/, const QUrl & /*name*/) override
    {
        ++counted;
        return {};
    }

private:
    int counted = 0;
};

/// Draws the beginning of a document as a display of this scale would.
void draw(QTextDocument *document, int scale)
{
    const QSize size(300, 200);
    QImage image(size * scale, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    image.setDevicePixelRatio(scale);
    QPainter painter(&image);
    document->setTextWidth(size.width());
    document->drawContents(&painter, QRectF(QPointF(), size));
}

void drawAtAllScales(QTextDocument *document)
{
    draw(document, 1);
    draw(document, 2);
}

/// What only a file would need in the tags of HTML that Qt has written: images, backgrounds, tool tips.
QString dangerIn(const QString &html)
{
    static const QRegularExpression tag(QStringLiteral(R"(<[^>]*>)"));
    static const QRegularExpression danger(QStringLiteral(
        R"(^<img\b|^<link\b|^<[^>]* (src|background|title)="|background-image:|list-style-image:)"));
    for (auto each = tag.globalMatch(html.mid(html.indexOf("<body"))); each.hasNext();) {
        // A link's target and a font's name may be any text.
        static const QRegularExpression names(QStringLiteral(R"( (href|name)="[^"]*"|font-family:'[^']*';)"));
        QString text = each.next().captured().remove(names);
        if (text.contains(danger)) {
            return text;
        }
    }
    return {};
}

/// Whether a tool tip, which would be read as HTML of its own, is left on any text.
bool hasToolTip(const QTextDocument &document)
{
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (auto each = block.begin(); !each.atEnd(); ++each) {
            if (each.fragment().charFormat().hasProperty(QTextFormat::TextToolTip)) {
                return true;
            }
        }
    }
    return false;
}

int depthOf(const QTextFrame *frame)
{
    int deepest = 0;
    const auto children = frame->childFrames();
    for (const QTextFrame *child : children) {
        deepest = qMax(deepest, depthOf(child));
    }
    return deepest + 1;
}

/// Whether a document for foreign HTML may show it as plain text, because to read it takes long. The last
/// @p unstyled characters are surely in no style sheet.
bool mayBeTooMuch(const QString &html, int unstyled)
{
    static const QRegularExpression span(QStringLiteral("(col|row)span"),
                                         QRegularExpression::CaseInsensitiveOption);
    const int tags = html.count('<');
    return html.size() > 65536 || tags > 1000 || html.contains(span) ||
           html.count("<table", Qt::CaseInsensitive) > 7 || html.count("<t", Qt::CaseInsensitive) > 100 ||
           (html.contains("<style", Qt::CaseInsensitive) && (html.size() - unstyled) * tags > 60000);
}

QString textWithoutImages(const QTextDocument &document)
{
    return document.toPlainText().remove(QChar::ObjectReplacementCharacter);
}

/// Proves that an access would be noticed, and loads what is loaded but once.
bool accessIsNoticed(const QFont &font)
{
    const FileWatch watch;
    Recorder document("a<img src='/evil-share/control.png'>", font);
    drawAtAllScales(&document);
    bool noticed = false;
    for (const std::string &path : watch.paths()) {
        noticed = noticed || path.find("/evil-share/control@2x.png") != std::string::npos;
    }
    return noticed && document.requests() > 0;
}

QFont startGui()
{
    static int argumentCount = 1;
    static char name[] = "fuzzer";
    static char *arguments[] = {name, nullptr};
    static const QGuiApplication application(argumentCount, arguments);
    return QGuiApplication::font();
}

} // namespace

/// Foreign HTML that has been read keeps its text, and has nothing left in it that would be loaded.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const QFont font = startGui();
    static const bool noticed = accessIsNoticed(font);
    require(noticed, "a file that is looked for is noticed");
    const QString html = textOf(inputOf(data, size));

    const FileWatch watch;
    InertDocument document(html, font);
    drawAtAllScales(&document);
    require(depthOf(document.rootFrame()) <= 8, "frames are nested no deeper than the limit");
    require(!hasToolTip(document), "no tool tip is left");
    const QString clean = document.toHtml();
    requireSame({dangerIn(clean)}, {QString()}, "the HTML names nothing that would be loaded");

    Recorder read(clean, font);
    drawAtAllScales(&read);
    require(read.requests() == 0, "nothing is loaded for HTML that has been cleaned");
    if (!mayBeTooMuch(clean, clean.size() - clean.indexOf("<body"))) {
        const InertDocument again(clean, font);
        requireSame({again.toHtml()}, {read.toHtml()}, "clean HTML is left as it is");
    }
    if (!mayBeTooMuch(html, 0)) {
        const Recorder plain(html, font);
        requireSame({textWithoutImages(document)}, {textWithoutImages(plain)}, "the text is kept");
    }
    for (const std::string &path : watch.paths()) {
        requireSame({QString::fromStdString(path)}, {}, "no file is looked for");
    }
    takeWarnings();
    return 0;
}
