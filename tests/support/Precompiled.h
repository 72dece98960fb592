// The heavy headers that every test includes, compiled once.
#include <QUndoStack>
#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtTest/QSignalSpy>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>
