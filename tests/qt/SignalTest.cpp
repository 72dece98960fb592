// What signals and the meta-object system do, as far as notifications and the commands that call a method rely on it.

#include <QtCore/QMetaMethod>
#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtTest/QSignalSpy>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>

namespace {

class Receiver : public QObject
{
    Q_OBJECT

public:
    Q_INVOKABLE void refresh() { ++calls; }
    Q_INVOKABLE void setOn(bool on) { calls += on ? 1 : 0; }
    Q_INVOKABLE void throwing() { throw std::runtime_error("of the method"); }

    QMetaMethod find(const char* signature) const
    {
        const int index = metaObject()->indexOfMethod(QMetaObject::normalizedSignature(signature));
        return index < 0 ? QMetaMethod() : metaObject()->method(index);
    }

    int calls = 0;
};

/// Counts the connections to its signal.
class Sender : public QObject
{
    Q_OBJECT

public:
    int connections = 0;

Q_SIGNALS:
    void happened();

protected:
    void connectNotify(const QMetaMethod& signal) override
    {
        if (signal == QMetaMethod::fromSignal(&Sender::happened)) ++connections;
    }
};

TEST(QtSignal, TellsItsSenderOfEachConnectionHoweverItIsMade)
{
    Sender sender;
    Receiver receiver;
    QObject::connect(&sender, &Sender::happened, &receiver, &Receiver::refresh);
    EXPECT_EQ(sender.connections, 1);
    QObject::connect(&sender, &Sender::happened, [] {});
    EXPECT_EQ(sender.connections, 2);
    QObject::connect(&sender, SIGNAL(happened()), &receiver, SIGNAL(destroyed()));
    EXPECT_EQ(sender.connections, 3);
    const QMetaObject& type = Sender::staticMetaObject;
    QMetaObject::connect(&sender, type.indexOfSignal("happened()"), &receiver,
                         Receiver::staticMetaObject.indexOfMethod("refresh()"));
    EXPECT_EQ(sender.connections, 4);
    const QSignalSpy spy(&sender, &Sender::happened);
    EXPECT_EQ(sender.connections, 5);
}

TEST(QtSignal, LetsAnExceptionOfASlotPassAndLeavesOutTheSlotsBehindIt)
{
    QObject sender;
    int calls = 0;
    QObject::connect(&sender, &QObject::objectNameChanged, &sender, [] { throw std::runtime_error("of the slot"); });
    QObject::connect(&sender, &QObject::objectNameChanged, &sender, [&calls] { ++calls; });
    EXPECT_THROW(sender.setObjectName("a"), std::runtime_error);
    EXPECT_EQ(calls, 0);
    EXPECT_THROW(sender.setObjectName("b"), std::runtime_error) << "the sender can still emit";
}

TEST(QtMetaObject, FindsAMethodByItsNormalisedSignature)
{
    const Receiver receiver;
    EXPECT_TRUE(receiver.find(" refresh ( ) ").isValid());
    EXPECT_TRUE(receiver.find("setOn( bool )").isValid());
    EXPECT_FALSE(receiver.find("setOn()").isValid());
    EXPECT_FALSE(receiver.find("missing()").isValid());
}

TEST(QtMetaObject, RefusesACallWithTooFewArguments)
{
    Receiver receiver;
    EXPECT_TRUE(receiver.find("refresh()").invoke(&receiver));
    EXPECT_EQ(receiver.calls, 1);
    EXPECT_FALSE(receiver.find("setOn(bool)").invoke(&receiver));
    EXPECT_TRUE(receiver.find("setOn(bool)").invoke(&receiver, Q_ARG(bool, true)));
    EXPECT_EQ(receiver.calls, 2);
}

TEST(QtMetaObject, LetsAnExceptionOfAMethodPass)
{
    Receiver receiver;
    EXPECT_THROW(receiver.find("throwing()").invoke(&receiver), std::runtime_error);
}

TEST(QtPointer, IsNullOnceItsObjectWasDestroyed)
{
    auto receiver = std::make_unique<Receiver>();
    const QPointer<QObject> pointer(receiver.get());
    EXPECT_EQ(pointer, receiver.get());
    receiver.reset();
    EXPECT_TRUE(pointer.isNull());
}

} // namespace

#include "SignalTest.moc"
