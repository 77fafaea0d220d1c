#pragma once

#include <QLabel>

/// A label onto which a licence file can be dropped. The file is never moved, only copied. A file that cannot
/// be copied, or is too large for a licence, is ignored.
class InstallLicenseDropFrame : public QLabel {
    Q_OBJECT

public:
    explicit InstallLicenseDropFrame(QWidget *parent = nullptr);

signals:
    /// A readable file was dropped: its local path, and its contents as a string, because the file may vanish
    /// after the drop.
    void file_dropped(const QString &filename, const QString &contents);

protected:
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;
};
