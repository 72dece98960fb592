#pragma once

#include <sceneeditor/properties/ValueRow.h>

/// A row with a choice whose items change with the scene. The value is the index of the item; -1 shows none.
void addChangingChoice(PropertyForm& form, const QString& label, const QString& name,
                       const std::function<QStringList()>& items, const PropertyForm::Read<int>& read,
                       const PropertyForm::Write<int>& write);
