#include "recent/RecentProgramsFrame.h"

#include "recent/HtmlDelegate.h"
#include "recent/RecentPrograms.h"
#include "ui_RecentProgramsFrame.h"

#include <QDebug>
#include <QDir>
#include <QKeyEvent>
#include <QSet>
#include <QSignalBlocker>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>

#include <algorithm>

namespace {

constexpr int sortKeyRole = Qt::UserRole + 1;
constexpr int pathRole = Qt::UserRole + 2;

/// Rows with more matches come first, equal ones in the order of the settings.
qlonglong sortKey(int score, int row, int rows)
{
    return qlonglong(score) * rows - row;
}

bool leadsToList(int key)
{
    return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown;
}

bool movesInList(int key)
{
    static const QSet<int> keys{Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Up,
                                Qt::Key_Down,   Qt::Key_Home,     Qt::Key_End};
    return keys.contains(key);
}

} // namespace

RecentProgramsFrame::RecentProgramsFrame(QWidget *parent)
    : QFrame(parent),
      programs(new QStandardItemModel(this)),
      ordered(new QSortFilterProxyModel(this)),
      ui(std::make_unique<Ui::RecentProgramsFrame>())
{
    ui->setupUi(this);
    setFocusProxy(ui->leSearchRecent);
    ui->leSearchRecent->setFocus(Qt::OtherFocusReason);
    programs->setHorizontalHeaderLabels({tr("Recent")});
    // Sorted once when all rows are up to date, not for each row that changes.
    ordered->setDynamicSortFilter(false);
    ordered->setSortRole(sortKeyRole);
    ordered->setSourceModel(programs);
    ui->treeView->setModel(ordered);
    ui->treeView->setItemDelegate(new HtmlDelegate(this));
    update_recent();

    connect(ui->leSearchRecent, &QLineEdit::textChanged, this, &RecentProgramsFrame::highlight_matching);
    ui->leSearchRecent->installEventFilter(this);
    ui->pbOK->installEventFilter(this);
    ui->treeView->installEventFilter(this);
}

RecentProgramsFrame::~RecentProgramsFrame() = default;

bool RecentProgramsFrame::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress) {
        return QFrame::eventFilter(watched, event);
    }
    const int key = static_cast<QKeyEvent *>(event)->key();
    if (watched == ui->treeView) {
        if (movesInList(key)) {
            return false;
        }
        // The key itself is lost.
        ui->leSearchRecent->setFocus(Qt::OtherFocusReason);
        return true;
    }
    if (leadsToList(key)) {
        ui->treeView->setFocus(Qt::OtherFocusReason);
        return true;
    }
    return false;
}

void RecentProgramsFrame::update_recent()
{
    const QStringList paths = readRecentPrograms();
    qDebug() << "recent programs:" << paths;
    // Not clear(), which would remove the header as well.
    programs->removeRows(0, programs->rowCount());
    QList<QStandardItem *> items;
    items.reserve(paths.size());
    for (int row = 0; row < paths.size(); ++row) {
        const HighlightedPath highlighted = highlightPath(paths.at(row), ui->leSearchRecent->text());
        auto *item = new QStandardItem(highlighted.html);
        item->setEditable(false);
        item->setData(paths.at(row), pathRole);
        item->setData(paths.at(row), Qt::AccessibleTextRole); // instead of the HTML
        item->setData(sortKey(highlighted.score, row, paths.size()), sortKeyRole);
        items.append(item);
    }
    programs->invisibleRootItem()->appendRows(items);
    ordered->sort(0, Qt::DescendingOrder);
    makeRoomForWidest(paths);
}

void RecentProgramsFrame::highlight_matching(const QString & /*text*/)
{
    const int rows = programs->rowCount();
    if (rows == 0) {
        return;
    }
    {
        // One signal for all rows: for each signal the view searches for its row.
        const QSignalBlocker blocker(programs);
        for (int row = 0; row < rows; ++row) {
            QStandardItem *item = programs->item(row);
            const HighlightedPath highlighted =
                highlightPath(item->data(pathRole).toString(), ui->leSearchRecent->text());
            item->setText(highlighted.html);
            item->setData(sortKey(highlighted.score, row, rows), sortKeyRole);
        }
    }
    emit programs->dataChanged(programs->index(0, 0), programs->index(rows - 1, 0));
    ordered->sort(0, Qt::DescendingOrder);
}

void RecentProgramsFrame::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape) {
        hide();
    } else {
        QFrame::keyPressEvent(event);
    }
}

void RecentProgramsFrame::makeRoomForWidest(const QStringList &paths)
{
    // A search can match a whole row, which is then shown in bold, and in capitals if they were typed.
    QFont bold = ui->treeView->font();
    bold.setBold(true);
    const QFontMetrics metrics(bold);
    int width = 0;
    for (const QString &path : paths) {
        // As it is shown: a letter beside a backslash may be at another distance than beside a slash.
        const QString shown = QString(path).replace(QLatin1Char('/'), QLatin1Char('\\'));
        width =
            std::max({width, metrics.horizontalAdvance(shown), metrics.horizontalAdvance(shown.toUpper())});
    }
    constexpr int margins = 16; // of the text's document and of the row
    ui->treeView->header()->setMinimumSectionSize(width + margins);
}
