#pragma once

#include <QDir>

/// Changes the current directory while this object lives.
class CurrentDirectory {
public:
    explicit CurrentDirectory(const QString &path) : before(QDir::currentPath()) { QDir::setCurrent(path); }
    CurrentDirectory(const CurrentDirectory &) = delete;
    CurrentDirectory &operator=(const CurrentDirectory &) = delete;
    ~CurrentDirectory() { QDir::setCurrent(before); }

private:
    QString before;
};
