#pragma once

#include <QString>
#include <QStringList>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextDocument>

/// One line for each run of equally formatted text: the text in quotes, then its format, such as
/// "\"feedback\" bold underlined #0000ff -> mailto:x" for a bold, underlined, blue link.
inline QStringList richTextRuns(const QTextDocument &document)
{
    QStringList runs;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (auto each = block.begin(); !each.atEnd(); ++each) {
            const QTextCharFormat format = each.fragment().charFormat();
            QString run = '"' + each.fragment().text().replace(QChar::LineSeparator, '\n') + '"';
            if (format.fontWeight() >= QFont::Bold) {
                run += " bold";
            }
            if (format.fontItalic()) {
                run += " italic";
            }
            if (format.fontUnderline()) {
                run += " underlined";
            }
            if (format.hasProperty(QTextFormat::ForegroundBrush)) {
                run += ' ' + format.foreground().color().name();
            }
            if (format.isAnchor()) {
                run += " -> " + format.anchorHref();
            }
            runs.append(run);
        }
    }
    return runs;
}

/// Clicks on the first occurrence of @p text in the shown @p browser.
inline void clickOn(QTextBrowser &browser, const QString &text)
{
    QTextCursor place = browser.document()->find(text);
    QVERIFY(!place.isNull());
    // Near its beginning, because a long text may be broken over two lines.
    place.setPosition(place.selectionStart() + 1);
    browser.setTextCursor(place);
    browser.ensureCursorVisible();
    QTest::mouseClick(browser.viewport(), Qt::LeftButton, Qt::NoModifier, browser.cursorRect(place).center());
}
