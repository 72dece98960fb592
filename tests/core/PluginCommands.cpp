// A plugin with many classes of commands. It is built twice: with classes of the library's kind, and with foreign ones.
// The sizes differ, so some of the foreign ones have the address that one of the others had in the plugin before.

#include <moUndoStack/core/moUndoCommand.h>

#include <moUndoUtils/moUndoString.h>

#include <array>
#include <cstddef>
#include <typeinfo>
#include <utility>

namespace {

#ifdef PLUGIN_IS_FOREIGN
class Base : public QUndoCommand
{
public:
    Base() : QUndoCommand("foreign") {}
};
#else
class Base : public moUndoCommand
{
public:
    Base() : moUndoCommand(moUndoString("ours", ""), nullptr) {}
};
#endif

struct Nothing
{
};

template<std::size_t number, bool hasTwoBases>
class Command final : public Base
{
public:
    void undo() override {}
    void redo() override {}
};

/// The type_info of a class with two bases is longer, which spreads the addresses.
template<std::size_t number>
class Command<number, true> final : public Base, public Nothing
{
public:
    void undo() override {}
    void redo() override {}
};

#ifdef PLUGIN_IS_FOREIGN
template<std::size_t number>
using CommandAt = Command<number, number % 2 == 1>;
#else
template<std::size_t number>
using CommandAt = Command<number, false>;
#endif

struct Class
{
    const void* address;
    QUndoCommand* (*make)();
};

template<std::size_t... numbers>
std::array<Class, sizeof...(numbers)> makeClasses(std::index_sequence<numbers...>)
{
    return {Class{&typeid(CommandAt<numbers>), []() -> QUndoCommand* { return new CommandAt<numbers>; }}...};
}

Class classAt(std::size_t number)
{
    return makeClasses(std::make_index_sequence<64>()).at(number);
}

} // namespace

extern "C" Q_DECL_EXPORT const void* addressOfClass(std::size_t number)
{
    return classAt(number).address;
}

extern "C" Q_DECL_EXPORT QUndoCommand* makeCommand(std::size_t number)
{
    return classAt(number).make();
}
