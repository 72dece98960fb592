// Compares docs/messages.md with the messages that the commands of the samples send, key by key.

#include <support/Samples.h>
#include <support/Trace.h>
#include <support/UndoTest.h>

#include <moUndoStack/core/moGenericFunctionUndoCommand.h>
#include <moUndoStack/core/moMultiCommand.h>

#include <moUndoUtils/moUndoString.h>

#include <QtCore/QFile>
#include <QtCore/QRegularExpression>

#include <algorithm>
#include <map>
#include <memory>
#include <set>

namespace {

using testing::ElementsAre;

using Lines = std::vector<std::string>;

/// A row of the page's tables: one key of the classes that are named in this row or in one above.
struct Row
{
    std::string key;  ///< `node=uint`; empty for the keys of the first child
    bool isLeftOut;   ///< whether some messages do not have it
    bool isForNobody; ///< a dash: the classes have no key of their own
};

class Page
{
public:
    Page()
    {
        QFile file(QStringLiteral(MO_MESSAGES_PAGE));
        if (!file.open(QIODevice::ReadOnly)) ADD_FAILURE() << "no page";
        QStringList named;
        for (const QString& line : QString::fromUtf8(file.readAll()).split('\n')) {
            QStringList cells = line.split('|');
            if (cells.size() < 6) continue;
            cells = cells.mid(1, cells.size() - 2);
            for (QString& cell : cells)
                cell = cell.trimmed();
            if (cells.size() == 4) {
                if (cells[0].startsWith('"')) m_first.push_back(row(cells[0], cells[1], cells[3]));
                continue;
            }
            if (!cells[0].isEmpty()) named = inBackticks(cells[0]);
            if (cells[1].isEmpty() || named.isEmpty()) continue;
            for (const QString& name : named)
                m_classes[withoutArguments(name.toStdString())].push_back(row(cells[1], cells[2], cells[4]));
        }
    }

    /// The rows of the first table.
    const std::vector<Row>& first() const { return m_first; }

    /// The rows of a class; none if the page does not name it.
    std::vector<Row> of(const std::string& className) const
    {
        const auto found = m_classes.find(withoutArguments(className));
        return found == m_classes.end() ? std::vector<Row>() : found->second;
    }

    std::set<std::string> classNames() const
    {
        std::set<std::string> names;
        for (const auto& entry : m_classes)
            names.insert(entry.first);
        return names;
    }

    static std::string withoutArguments(const std::string& name) { return name.substr(0, name.find('<')); }

private:
    static QStringList inBackticks(const QString& cell)
    {
        static const QRegularExpression pattern(QStringLiteral("`([^`]+)`"));
        QStringList names;
        for (auto match = pattern.globalMatch(cell); match.hasNext();)
            names += match.next().captured(1);
        return names;
    }

    static Row row(const QString& key, const QString& type, const QString& leftOut)
    {
        static const std::map<QString, std::string> types{{"`int`", "int"},
                                                          {"`bool`", "bool"},
                                                          {"`std::string`", "string"},
                                                          {"`unsigned int`", "uint"},
                                                          {"`std::vector<unsigned int>`", "uints"}};
        if (!key.startsWith('"')) return {"", false, key == QStringLiteral("–")};
        const auto known = types.find(type);
        if (known == types.end()) ADD_FAILURE() << "unknown type " << type.toStdString();
        const std::string typeName = known == types.end() ? "" : known->second;
        return {key.mid(1, key.size() - 2).toStdString() + "=" + typeName, leftOut != QStringLiteral("never"), false};
    }

    std::vector<Row> m_first;
    std::map<std::string, std::vector<Row>> m_classes;
};

const Page& page()
{
    static const Page thePage;
    return thePage;
}

class MessagesPage : public UndoTest
{
protected:
    void SetUp() override
    {
        UndoTest::SetUp();
        scene = std::make_unique<SampleScene>();
    }

    void TearDown() override
    {
        moUndoStack::clearAll();
        scene.reset();
        UndoTest::TearDown();
    }

    /// The keys, with their types, of the message that a pushed command sends.
    Lines keysSent(QUndoCommand* command)
    {
        Trace trace(stack);
        stack.add(command);
        return keysOf(trace.takeMessages());
    }

    static Lines keysOf(const Lines& messages)
    {
        EXPECT_EQ(messages.size(), 1U);
        static const QRegularExpression pattern(QStringLiteral("([A-Za-z]+=[a-z]+):"));
        Lines keys;
        for (const std::string& message : messages)
            for (auto match = pattern.globalMatch(QString::fromStdString(message)); match.hasNext();)
                keys.push_back(match.next().captured(1).toStdString());
        return keys;
    }

    /// The keys from "id" on that the page names for the class.
    static Lines promised(const std::string& className, const QUndoCommand& command, bool ofNull)
    {
        Lines keys;
        for (const Row& row : page().of(className)) {
            if (row.isForNobody || (row.isLeftOut && ofNull)) continue;
            if (!row.key.empty()) {
                keys.push_back(row.key);
                continue;
            }
            const QUndoCommand* const first = command.child(0);
            for (const Sample& sample : samples())
                if (sample.commandId && sample.commandId() == first->id())
                    keys = promised(sample.className, *first, ofNull);
        }
        return keys;
    }

    static Lines expected(const std::string& className, const QUndoCommand& command, bool ofNull)
    {
        Lines keys;
        for (const Row& row : page().first())
            keys.push_back(row.key);
        const Lines own = promised(className, command, ofNull);
        keys.insert(keys.end(), own.begin(), own.end());
        return keys;
    }

    std::unique_ptr<SampleScene> scene;
};

class MessagesPageOf : public MessagesPage, public testing::WithParamInterface<Sample>
{
protected:
    void expectWhatThePageSays(bool ofNull)
    {
        moUndoCommandBase* const command = GetParam().make(scene->target, 0);
        const Lines keys = expected(GetParam().className, *command, ofNull);
        EXPECT_EQ(keysSent(command), keys);
    }
};

std::string nameOf(const testing::TestParamInfo<Sample>& info)
{
    std::string name = info.param.className + info.param.form;
    std::replace_if(
        name.begin(), name.end(), [](unsigned char c) { return !std::isalnum(c); }, '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Page, MessagesPageOf, testing::ValuesIn(samples()), nameOf);

TEST_F(MessagesPage, NamesEveryClassAndNoOther)
{
    std::set<std::string> classes;
    for (const Sample& sample : samples())
        classes.insert(Page::withoutArguments(sample.className));
    EXPECT_EQ(page().classNames(), classes);
}

TEST_P(MessagesPageOf, ListsExactlyTheKeysThatAreSentInTheirOrder)
{
    expectWhatThePageSays(false);
}

TEST_P(MessagesPageOf, TellsWhichKeysAreLeftOutForNull)
{
    for (const std::string& role : scene->target.roles())
        scene->target.destroy(role);
    expectWhatThePageSays(true);
}

TEST_F(MessagesPage, TellsWhichOfTheFirstKeysAreLeftOut)
{
    Lines always;
    for (const Row& row : page().first())
        if (!row.isLeftOut) always.push_back(row.key);
    EXPECT_EQ(keysSent(new QUndoCommand("of Qt")), always);
    EXPECT_THAT(always, ElementsAre("index=int", "added=bool", "text=string"));
}

TEST_F(MessagesPage, IsRightAboutAMacro)
{
    Trace trace(stack);
    stack.beginMacro("macro");
    stack.endMacro();
    EXPECT_THAT(keysOf(trace.takeMessages()), ElementsAre("index=int", "added=bool", "text=string"));
}

TEST_F(MessagesPage, IsRightAboutCompositesThatHaveNoSingleCommandFirst)
{
    const moUndoString text("composite", QString());
    const auto described = ElementsAre("index=int", "added=bool", "text=string", "description=string");
    EXPECT_THAT(keysSent(new moMultiCommand(text)), described);
    auto* const outer = new moMultiCommand(text);
    auto* const inner = new moMultiCommand(text, outer);
    new moGenericFunctionUndoCommand(
        text, [] {}, [] {}, inner);
    EXPECT_THAT(keysSent(outer), described);
}

} // namespace
