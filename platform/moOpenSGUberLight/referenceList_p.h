#pragma once

#include <OpenSG/OSGFieldContainer.h>

#include <algorithm>
#include <cstddef>

/// What the lists of handles of this library do alike: an entry is held with a reference, null is never an entry, and
/// nothing is in a list twice. A field does not count by itself, so every change of such a list goes through here.
///
/// Items are taken by value: the caller's handle may be the list's own entry, and giving back the last reference nulls
/// the handle through which it is done.
namespace referenceList {

template<class List, class Ptr>
bool contains(const List& list, const Ptr& item)
{
    return std::find(list.begin(), list.end(), item) != list.end();
}

template<class List, class Ptr>
void insert(List& list, std::size_t index, Ptr item)
{
    if (!item || contains(list, item)) return;
    osg::addRefCP(item);
    const auto offset = static_cast<std::ptrdiff_t>(std::min(index, static_cast<std::size_t>(list.size())));
    list.insert(list.begin() + offset, item);
}

/// Keeps the list in the order in which its items were created, which is that of their ids.
template<class List, class Ptr>
void insertById(List& list, Ptr item)
{
    if (!item) return;
    const auto newer = [&item](const Ptr& other) { return osg::getContainerId(other) > osg::getContainerId(item); };
    const auto place = std::find_if(list.begin(), list.end(), newer);
    insert(list, static_cast<std::size_t>(place - list.begin()), item);
}

template<class List, class Ptr>
void remove(List& list, Ptr item)
{
    const auto entry = std::find(list.begin(), list.end(), item);
    if (entry == list.end()) return;
    list.erase(entry);
    osg::subRefCP(item);
}

/// For the copy of a container: the copied entries become held ones.
template<class List>
void addReferences(const List& list)
{
    for (const auto& item : list)
        osg::addRefCP(item);
}

/// The list is empty before the first item is released: an item that goes may look at the list.
template<class List>
void clear(List& list)
{
    List items;
    items.swap(list);
    for (auto item : items)
        osg::subRefCP(item);
}

} // namespace referenceList
