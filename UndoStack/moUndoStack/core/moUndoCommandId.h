#pragma once

#include <typeindex>

// The identity of a command class, declared and defined in one line each. Every concrete command class has
//
//     static int commandId();         its id, made on first use and the same for the life of the process
//     int id() const override;        commandId(): Qt asks two commands to merge only if they answer alike
//     static void classNameTest();    private and empty: names the class in its own scope
//
// MO_UNDO_COMMAND_ID stands in the class body and leaves the access at private.

/// Declares the identity of a command class, inside the class. What follows in the class is private.
#define MO_UNDO_COMMAND_ID                                                                                             \
public:                                                                                                                \
    static int commandId();                                                                                            \
    int id() const override;                                                                                           \
                                                                                                                       \
private:                                                                                                               \
    [[maybe_unused]] static void classNameTest() {}

/// Defines the identity of a command class, once, in its source.
/// \param Class  the class, without template arguments.
#define MO_UNDO_COMMAND_ID_IMPL(Class)                                                                                 \
    int Class::commandId()                                                                                             \
    {                                                                                                                  \
        static const int cmdId = moUndoCommand::makeId(std::type_index(typeid(Class)));                                \
        return cmdId;                                                                                                  \
    }                                                                                                                  \
    int Class::id() const                                                                                              \
    {                                                                                                                  \
        return commandId();                                                                                            \
    }

/// The same for a class template with one type parameter, before its explicit instantiations.
/// \param Class  the class template.
/// \param T      the name of its parameter.
#define MO_UNDO_COMMAND_ID_TEMPLATE_IMPL(Class, T)                                                                     \
    template<class T>                                                                                                  \
    int Class<T>::commandId()                                                                                          \
    {                                                                                                                  \
        static const int cmdId = moUndoCommand::makeId(std::type_index(typeid(Class<T>)));                             \
        return cmdId;                                                                                                  \
    }                                                                                                                  \
    template<class T>                                                                                                  \
    int Class<T>::id() const                                                                                           \
    {                                                                                                                  \
        return commandId();                                                                                            \
    }
