#pragma once

#include <sceneeditor/properties/PropertyDock.h>

#include <OpenSG/OSGFieldContainer.h>
#include <OpenSG/OSGImage.h>

#include <QtCore/QVariant>

#include <functional>
#include <optional>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QTreeWidget;
class moUndoString;

/// The fields of any container: what has no dock of its own can be edited here.
class FieldDock : public PropertyDock
{
    Q_OBJECT

public:
    explicit FieldDock(EditorSession& session, QWidget* parent = nullptr);

public Q_SLOTS:
    /// Shows in the lamp the flag that was switched with it last.
    void showLamp();

private:
    void addContainers();
    void addTable();
    void addNumbers();
    void addFlag();
    void addTexts();
    void addImage();
    void showContainers();
    void showTable();
    void showList();

    osg::FieldContainerPtr container() const;
    /// The field of the current row; null if there is none.
    const osg::Field* field() const;
    int fieldId() const;
    std::string fieldName() const;
    /// What the function reads from the current field; nothing without one.
    template<class T>
    std::function<std::optional<T>()> reader(std::optional<T> (*read)(const osg::Field&)) const;
    moUndoString text() const;

    template<class T>
    void setNumber(T value);
    void setFlag(bool on);
    void switchWithLamp();
    void setText(const QString& value);
    void setList();
    void setImage(const osg::ImagePtr& image);
    void loadImage();

    QComboBox* m_container;
    QTreeWidget* m_table;
    QCheckBox* m_byId;
    QCheckBox* m_lamp;
    QPlainTextEdit* m_list;
    QLineEdit* m_imageFile;
    QLabel* m_imageNote;
    QVariant m_chosen;   ///< id of the container that the user chose
    int m_chosenRow = 0; ///< where it was in the list
    osg::UInt32 m_lampContainer = 0;
    int m_lampField = 0;
};
