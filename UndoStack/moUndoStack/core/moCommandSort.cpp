#include <moUndoStack/core/moCommandSort_p.h>

#include <moUndoStack/core/moMultiCommand.h>
#include <moUndoStack/core/moUndoCommand.h>

const std::type_info* moCommandSort::s_class = nullptr;
const moUndoCommandBase* moCommandSort::s_example = nullptr;
moCommandSort::Sort moCommandSort::s_sort = moCommandSort::Foreign;

moCommandSort::Sort moCommandSort::cast(const QUndoCommand& command)
{
    const auto* ours = dynamic_cast<const moUndoCommandBase*>(&command);
    if (!ours) return Foreign;
    const bool speaks = dynamic_cast<const moUndoCommand*>(ours) || dynamic_cast<const moMultiCommand*>(ours);
    s_class = &typeid(command);
    s_example = ours;
    s_sort = speaks ? Speaking : Described;
    return s_sort;
}
