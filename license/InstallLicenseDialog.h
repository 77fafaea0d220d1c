#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class InstallLicenseDialog;
}

/// Lets the user choose a licence file, or drop one. Run modally; on acceptance ask for selectedFile().
class InstallLicenseDialog : public QDialog {
    Q_OBJECT

public:
    /// @p targetDirectory is shown as the file's destination.
    explicit InstallLicenseDialog(const QString &targetDirectory, QWidget *parent = nullptr);
    ~InstallLicenseDialog() override;

    /// The path of the chosen or dropped file, with native separators; empty while there is none.
    QString selectedFile() const;

    /// The file's contents when it was dropped; empty when it was not dropped.
    QString droppedContents() const;

public slots:
    /// Takes @p file as the chosen one, and its directory as the start of the next choice.
    void set_path(const QString &file);

    /// Lets the user choose a file.
    void select_path();

    /// Takes @p file, which was dropped and had this @p content then.
    void set_path_and_content(const QString &file, const QString &content);

private:
    void showFile(const QString &file, const QString &content);

    QString selected;
    QString dropped;
    std::unique_ptr<Ui::InstallLicenseDialog> ui;
};
