#pragma once

#include <QFrame>

#include <memory>

class QSortFilterProxyModel;
class QStandardItemModel;

namespace Ui {
class RecentProgramsFrame;
}

/// A view of the HDevelop programs opened last, with a search line that marks what it finds and moves the
/// best matches to the top. Entries that do not match stay in the list.
class RecentProgramsFrame : public QFrame {
    Q_OBJECT

public:
    /// Reads the list of programs.
    explicit RecentProgramsFrame(QWidget *parent = nullptr);
    ~RecentProgramsFrame() override;

    /// Moves the keyboard focus from the search line to the list and back.
    bool eventFilter(QObject *watched, QEvent *event) override;

public slots:
    /// Reads the list of programs again and shows it.
    void update_recent();

    /// Marks what matches the search line (@p text is ignored) and moves the best matches to the top.
    void highlight_matching(const QString &text);

protected:
    /// Hides the frame on Escape.
    void keyPressEvent(QKeyEvent *event) override;

private:
    void makeRoomForWidest(const QStringList &paths);

    QStandardItemModel *programs;   ///< a row for each program, in the order of HDevelop's settings
    QSortFilterProxyModel *ordered; ///< the same rows in the order in which they are shown
    std::unique_ptr<Ui::RecentProgramsFrame> ui;
};
