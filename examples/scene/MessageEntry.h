#pragma once

#include <moUtils/moMessage.h>

#include <QtCore/QJsonValue>
#include <QtCore/QString>

/// A key of a message, with the C++ type of its value, which tells what a receiver has to ask for.
struct MessageEntry
{
    QString key;
    QString type;
    QJsonValue value;
};

MessageEntry readEntry(const moMessage::Entry& source);

/// The value as JSON writes it: text quoted, lists in brackets. A long list is cut off.
QString written(const QJsonValue& value);
