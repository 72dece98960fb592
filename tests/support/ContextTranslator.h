#pragma once

#include <QtCore/QCoreApplication>
#include <QtCore/QTranslator>

/// While it exists, translates every text into "context: text".
class ContextTranslator : public QTranslator
{
public:
    ContextTranslator() { QCoreApplication::installTranslator(this); }
    ~ContextTranslator() override { QCoreApplication::removeTranslator(this); }

    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* sourceText, const char*, int) const override
    {
        return QString::fromUtf8(context) + ": " + QString::fromUtf8(sourceText);
    }
};
