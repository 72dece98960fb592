#pragma once

#include <sceneeditor/properties/PropertyDock.h>

#include <moOpenSGExt/OSGTransformVariant.h>

#include <QtCore/QCoreApplication>

#include <vector>

class QListWidget;

/// The list of the transform variants of the current node.
class VariantDock : public PropertyDock
{
    Q_DECLARE_TR_FUNCTIONS(VariantDock)

public:
    explicit VariantDock(EditorSession& session, QWidget* parent = nullptr);

private:
    void addList();
    void addListButtons();
    void addOptions();
    void showList();

    int count() const;
    /// The rows that are selected, ascending.
    std::vector<int> selected() const;
    /// The current row; -1 if there is none.
    int current() const;
    osg::TransformVariantPtr variant() const;

    void record(int row);
    void remove();
    void move(int by);
    void rename(const QString& name);
    void setFlag(osg::UInt64 flag, bool on);
    void apply();

    QListWidget* m_list;
};
