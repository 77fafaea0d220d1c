#pragma once

#include <QDir>

/// Makes another directory the current one for as long as this lives.
class CurrentDirectory {
public:
    explicit CurrentDirectory(const QString &path) : before(QDir::currentPath()) { QDir::setCurrent(path); }
    CurrentDirectory(const CurrentDirectory &) = delete;
    CurrentDirectory &operator=(const CurrentDirectory &) = delete;
    ~CurrentDirectory() { QDir::setCurrent(before); }

private:
    QString before;
};
