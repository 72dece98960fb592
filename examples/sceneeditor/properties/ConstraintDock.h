#pragma once

#include <sceneeditor/properties/PropertyDock.h>

#include <moOpenSGConstraint/OSGAbstractConstraint.h>
#include <moOpenSGConstraint/OSGAimConstraint.h>

#include <QtCore/QCoreApplication>

#include <vector>

class QComboBox;
class QTreeWidget;

/// The roles that objects have in a constraint. The selected nodes are given roles and taken out of them.
class ConstraintDock : public PropertyDock
{
    Q_DECLARE_TR_FUNCTIONS(ConstraintDock)

public:
    explicit ConstraintDock(EditorSession& session, QWidget* parent = nullptr);

private:
    void addRoles();
    void addRoleButtons();
    void showConstraints();
    void showRoles();

    std::vector<osg::AbstractConstraintPtr> constraints() const;
    /// The one that is shown; null if there is none.
    osg::AbstractConstraintPtr constraint() const;
    osg::AimConstraintPtr aim() const;

    QComboBox* m_constraint;
    QTreeWidget* m_roles;
};
