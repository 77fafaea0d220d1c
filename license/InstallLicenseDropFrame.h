#pragma once

#include <QLabel>

/// A label onto which a licence file can be dropped. The file is only ever copied: what cannot be, and what is too large
/// for a licence, is left alone.
class InstallLicenseDropFrame : public QLabel {
    Q_OBJECT

public:
    explicit InstallLicenseDropFrame(QWidget *parent = nullptr);

signals:
    /// A readable file was dropped: its local path, and its contents as text, for the file may vanish after the drop.
    void file_dropped(const QString &filename, const QString &contents);

protected:
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;
};
