#pragma once

#include <QCoreApplication>
#include <QTranslator>

/// While it lives, puts each translated text in square brackets.
class MarkingTranslator : public QTranslator {
public:
    MarkingTranslator() { QCoreApplication::installTranslator(this); }
    MarkingTranslator(const MarkingTranslator &) = delete;
    MarkingTranslator &operator=(const MarkingTranslator &) = delete;
    ~MarkingTranslator() override { QCoreApplication::removeTranslator(this); }

    bool isEmpty() const override { return false; }

    QString translate(const char * /*context*/, const char *sourceText, const char * /*disambiguation*/,
                      int /*number*/) const override
    {
        return '[' + QString::fromUtf8(sourceText) + ']';
    }
};
