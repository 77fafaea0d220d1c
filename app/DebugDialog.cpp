#include "app/DebugDialog.h"

#include "base/DebugLogger.h"
#include "ui_DebugDialog.h"

#include <QAbstractTextDocumentLayout>
#include <QClipboard>
#include <QMessageBox>
#include <QScrollBar>
#include <QTextCursor>

#include <algorithm>

namespace {

// Qt never finishes a line that begins beyond 8,388,607 pixels, and what a server answers is in the log. For a
// moment there can be twice as many lines.
constexpr int mostLines = 100000;

/// The end of a text, of at most that many lines.
QString lastLines(const QString &text)
{
    int newline = text.size();
    for (int lines = 0; newline > 0; ++lines) {
        if (lines == mostLines) {
            return text.mid(newline + 1);
        }
        newline = text.lastIndexOf(QLatin1Char('\n'), newline - 1);
    }
    return text;
}

} // namespace

DebugDialog::DebugDialog(QWidget *parent) : QDialog(parent), ui(std::make_unique<Ui::DebugDialog>())
{
    ui->setupUi(this);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);

    connect(&DebugLogger::instance(), &DebugLogger::updated, this, &DebugDialog::updateLog);
    connect(ui->pbClose, &QPushButton::clicked, this, &DebugDialog::close);
    connect(ui->pbClipboard, &QPushButton::clicked, this, &DebugDialog::copyToClipboard);

    const QString text = DebugLogger::instance().text();
    ui->textBrowser->document()->setMaximumBlockCount(mostLines);
    ui->textBrowser->setPlainText(lastLines(text));
    shownLength = text.size();
}

DebugDialog::~DebugDialog() = default;

void DebugDialog::updateLog()
{
    QTextBrowser *browser = ui->textBrowser;
    QScrollBar *bar = browser->verticalScrollBar();
    const bool atEnd = bar->value() == bar->maximum();

    // The log only grows. Setting the whole text again would lose the scroll position and the selection.
    QTextCursor reader = browser->textCursor();
    reader.setKeepPositionOnInsert(true);
    const int place = bar->value();
    const QString text = DebugLogger::instance().text();
    QTextCursor end(browser->document());
    end.movePosition(QTextCursor::End);
    end.insertText(lastLines(text.mid(shownLength)));
    shownLength = text.size();
    if (reader != browser->textCursor()) {
        // A selection that reached the end has grown.
        reader.setKeepPositionOnInsert(false);
        browser->setTextCursor(reader);
        bar->setValue(place);
    }

    if (atEnd) {
        // The layout updates the bar's maximum only later.
        const int height = browser->document()->documentLayout()->documentSize().toSize().height();
        bar->setMaximum(std::max(0, height - browser->viewport()->height()));
        bar->setValue(bar->maximum());
    }
}

void DebugDialog::copyToClipboard()
{
    QApplication::clipboard()->setText(DebugLogger::instance().text());
    QMessageBox::information(this, QApplication::applicationName(), tr("Copied to clipboard"));
}
