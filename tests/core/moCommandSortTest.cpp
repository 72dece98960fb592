#include <support/Trace.h>
#include <support/UndoTest.h>

#include <QUndoCommand>

#include <cstddef>
#include <dlfcn.h>
#include <vector>

namespace {

using testing::HasSubstr;
using testing::Not;

constexpr std::size_t classCount = 64; // in each plugin

/// A plugin while it is loaded.
class Plugin
{
public:
    explicit Plugin(const char* file) : m_handle(dlopen(file, RTLD_NOW | RTLD_LOCAL))
    {
        if (!m_handle) throw std::runtime_error(dlerror());
    }
    ~Plugin() { dlclose(m_handle); }
    Plugin(const Plugin&) = delete;
    Plugin& operator=(const Plugin&) = delete;

    const void* addressOfClass(std::size_t number) const
    {
        return find<const void*(std::size_t)>("addressOfClass")(number);
    }
    QUndoCommand* makeCommand(std::size_t number) const
    {
        return find<QUndoCommand*(std::size_t)>("makeCommand")(number);
    }
    std::vector<const void*> addresses() const
    {
        std::vector<const void*> all;
        for (std::size_t i = 0; i < classCount; ++i)
            all.push_back(addressOfClass(i));
        return all;
    }

private:
    template<class Function>
    Function* find(const char* name) const
    {
        return reinterpret_cast<Function*>(dlsym(m_handle, name));
    }

    void* m_handle;
};

using CommandSort = UndoTest;

TEST_F(CommandSort, IsThatOfTheClassWhichHasTheAddressNowWhenAPluginTookThePlaceOfAnother)
{
    const std::vector<const void*> ours = Plugin(PLUGIN_WITH_OUR_COMMANDS).addresses();
    const std::vector<const void*> foreign = Plugin(PLUGIN_WITH_FOREIGN_COMMANDS).addresses();
    Trace trace(stack);
    const auto keysOf = [&](const Plugin& plugin, std::size_t number, const void* address) {
        EXPECT_EQ(plugin.addressOfClass(number), address);
        stack.add(plugin.makeCommand(number));
        const std::vector<std::string> messages = trace.takeMessages();
        stack.clear();
        trace.take();
        return messages.empty() ? std::string() : messages.front();
    };
    int shared = 0;
    for (std::size_t i = 0; i < classCount; ++i) {
        for (std::size_t k = 0; k < classCount; ++k) {
            if (ours[i] != foreign[k]) continue;
            ++shared;
            for (int turn = 0; turn < 2; ++turn) { // the foreign class comes second, and first
                EXPECT_THAT(keysOf(Plugin(PLUGIN_WITH_OUR_COMMANDS), i, ours[i]), HasSubstr("description="));
                EXPECT_THAT(keysOf(Plugin(PLUGIN_WITH_FOREIGN_COMMANDS), k, foreign[k]),
                            Not(HasSubstr("description=")));
            }
        }
    }
    EXPECT_GT(shared, 0) << "otherwise this shows nothing";
}

} // namespace
