#include <sceneeditor/properties/FieldDock.h>

#include <sceneeditor/EditorSession.h>
#include <sceneeditor/properties/FieldValue.h>
#include <sceneeditor/properties/SceneContainers.h>
#include <sceneeditor/properties/ValueRow.h>

#include <moUndoStack/moUndoCommands.h>

#include <QtCore/QSignalBlocker>
#include <QtGui/QImage>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QTreeWidget>

#include <algorithm>
#include <cstdint>

namespace {

enum Column
{
    Id,
    Name,
    Type,
    Value
};

// What a double holds exactly. The library cuts a number to the width of the field.
constexpr double mostExact = 9007199254740992.;
const NumberStyle wholes{-mostExact, mostExact, 1, 0};
const NumberStyle floats{-1e12, 1e12, 0.1, 4};

osg::ImagePtr chequered()
{
    constexpr osg::UInt8 pixels[] = {0, 255, 255, 0};
    const osg::ImagePtr image = osg::Image::create();
    image->set(osg::Image::OSG_L_PF, 2, 2, 1, 1, 1, 0., pixels);
    return image;
}

} // namespace

FieldDock::FieldDock(EditorSession& session, QWidget* parent)
    : PropertyDock(tr("Fields"), "field-dock", session, parent),
      m_container(new QComboBox),
      m_table(new QTreeWidget),
      m_byId(new QCheckBox(tr("Address fields by id"))),
      m_lamp(new QCheckBox),
      m_list(new QPlainTextEdit),
      m_imageFile(new QLineEdit),
      m_imageNote(new QLabel)
{
    addContainers();
    addTable();
    addNumbers();
    addFlag();
    addTexts();
    addImage();
    form().refresh();
}

void FieldDock::addContainers()
{
    m_container->setObjectName("field-container");
    m_container->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    connect(m_container, qOverload<int>(&QComboBox::activated), this, [this](int row) {
        m_chosen = m_container->itemData(row);
        m_chosenRow = row;
        form().refresh();
    });
    form().addWidget(tr("Container"), m_container, [this] { showContainers(); });
}

void FieldDock::addTable()
{
    m_table->setObjectName("field-table");
    m_table->setHeaderLabels({tr("Id"), tr("Name"), tr("Type"), tr("Value")});
    m_table->setRootIsDecorated(false);
    m_table->setUniformRowHeights(true);
    m_table->setMinimumHeight(200);
    m_table->header()->setSectionResizeMode(Id, QHeaderView::ResizeToContents);
    m_table->header()->setSectionResizeMode(Name, QHeaderView::ResizeToContents);
    connect(m_table, &QTreeWidget::currentItemChanged, this, [this] { form().refresh(); });
    form().addWidget(m_table, [this] { showTable(); });
    m_byId->setObjectName("field-by-id");
    form().addWidget(m_byId);
}

template<class T>
std::function<std::optional<T>()> FieldDock::reader(std::optional<T> (*read)(const osg::Field&)) const
{
    return [this, read] { return field() ? read(*field()) : std::nullopt; };
}

void FieldDock::addNumbers()
{
    form().addNumber(tr("Whole number"), "field-whole", wholes, reader(wholeOf),
                     [this](double value) { setNumber(static_cast<std::int64_t>(value)); });
    form().addNumber(tr("Number"), "field-number", floats, reader(numberOf),
                     [this](double value) { setNumber(value); });
}

void FieldDock::addFlag()
{
    form().addFlag(tr("Flag"), "field-flag", reader(flagOf), [this](bool on) { setFlag(on); });
    m_lamp->setObjectName("field-lamp");
    m_lamp->setEnabled(false);
    form().addWidget(tr("Lamp"), m_lamp);
    form().addButtons({{tr("Switch Flag and Lamp"), "field-switch", [this] { return field() && flagOf(*field()); },
                        [this] { switchWithLamp(); }}});
}

void FieldDock::addTexts()
{
    form().addText(tr("Text"), "field-text", reader(textOf), [this](const QString& value) { setText(value); });
    m_list->setObjectName("field-list");
    m_list->setPlaceholderText(tr("One text a line"));
    m_list->setTabChangesFocus(true);
    m_list->setMaximumHeight(5 * m_list->fontMetrics().lineSpacing());
    form().addWidget(tr("List"), m_list, [this] { showList(); });
    form().addButtons(
        {{tr("Set List"), "field-set-list", [this] { return field() && listOf(*field()); }, [this] { setList(); }}});
}

void FieldDock::addImage()
{
    const auto has = [this] { return field() && isImage(*field()); };
    m_imageFile->setObjectName("field-image-file");
    m_imageNote->setObjectName("field-image-note");
    form().addWidget(tr("Image file"), m_imageFile, [this, has] { m_imageFile->setEnabled(has()); });
    form().addButtons({
        {tr("Load"), "field-image-load", has, [this] { loadImage(); }},
        {tr("Chequer"), "field-image-chequer", has, [this] { setImage(chequered()); }},
        {tr("None"), "field-image-none", has, [this] { setImage(osg::NullFC); }},
    });
    form().addWidget(m_imageNote);
}

/// The container that the user chose stays; of another node, the one in the same place is shown.
void FieldDock::showContainers()
{
    const QSignalBlocker blocked(m_container);
    m_container->clear();
    for (const NamedContainer& each : containersOf(node(), session().model()))
        m_container->addItem(each.name, each.id);
    const int same = m_container->findData(m_chosen);
    m_container->setCurrentIndex(same >= 0 ? same : std::max(0, std::min(m_chosenRow, m_container->count() - 1)));
    m_container->setEnabled(m_container->count() > 0);
}

void FieldDock::showTable()
{
    const QSignalBlocker blocked(m_table);
    const osg::FieldContainerPtr shown = container();
    const int count = shown ? static_cast<int>(shown->getType().getNumFieldDescs()) : 0;
    while (m_table->topLevelItemCount() > count)
        delete m_table->takeTopLevelItem(m_table->topLevelItemCount() - 1);
    while (m_table->topLevelItemCount() < count)
        new QTreeWidgetItem(m_table);
    m_table->setEnabled(count > 0);
    for (int row = 0; row < count; ++row) {
        const auto id = static_cast<osg::UInt32>(row + 1);
        QTreeWidgetItem* const item = m_table->topLevelItem(row);
        const osg::Field* const each = shown->getField(id);
        item->setText(Id, QString::number(id));
        item->setText(Name, shown->getType().getFieldDescription(id)->getCName());
        item->setText(Type, each ? each->getType().getCName() : QString());
        item->setText(Value, each ? summaryOf(*each) : QString());
    }
}

/// Leaves what the user types alone, until the field has another list.
void FieldDock::showList()
{
    const std::optional<QStringList> list = field() ? listOf(*field()) : std::nullopt;
    m_list->setEnabled(list.has_value());
    const QString shown = list.value_or(QStringList()).join('\n');
    const char* const property = "shownList";
    if (m_list->property(property).toString() == shown) return;
    m_list->setProperty(property, shown);
    m_list->setPlainText(shown);
}

osg::FieldContainerPtr FieldDock::container() const
{
    return m_container->currentIndex() < 0 ? osg::FieldContainerPtr(osg::NullFC)
                                           : containerById(m_container->currentData().toUInt());
}

int FieldDock::fieldId() const
{
    return m_table->indexOfTopLevelItem(m_table->currentItem()) + 1;
}

const osg::Field* FieldDock::field() const
{
    const osg::FieldContainerPtr shown = container();
    if (!shown || fieldId() < 1 || static_cast<osg::UInt32>(fieldId()) > shown->getType().getNumFieldDescs())
        return nullptr;
    return shown->getField(static_cast<osg::UInt32>(fieldId()));
}

std::string FieldDock::fieldName() const
{
    return container()->getType().getFieldDescription(static_cast<osg::UInt32>(fieldId()))->getCName();
}

moUndoString FieldDock::text() const
{
    const QString text = tr("Set %1 of %2").arg(QString::fromStdString(fieldName()), m_container->currentText());
    return {text, text, "Field Commands"};
}

/// The library picks the command that the type of the field needs. Without a parent, it would be recorded also while
/// recording is off.
template<class T>
void FieldDock::setNumber(T value)
{
    if (moUndoStack::undoEnabled()) {
        moUndoUtil::makeCommand(text(), container(), fieldName(), value);
        return;
    }
    auto* const step = new moMultiCommand(text(), nullptr);
    moUndoUtil::makeCommand(text(), container(), fieldName(), value, step);
    session().apply(step);
}

void FieldDock::setFlag(bool on)
{
    if (m_byId->isChecked())
        session().apply(new moBoolFieldUndoCommand(text(), container(), fieldId(), on));
    else
        session().apply(new moBoolFieldUndoCommand(text(), container(), fieldName(), on));
}

/// The lamp is set by the second child at each redo. That does nothing at undo: the composite calls showLamp() both
/// ways.
void FieldDock::switchWithLamp()
{
    m_lampContainer = osg::getContainerId(container());
    m_lampField = fieldId();
    m_lamp->setText(QString::fromStdString(fieldName()));
    const bool on = !*flagOf(*field());
    const char* const method = "setChecked(bool)";
    auto* const step = new moInvokeMultiCommand(text(), this, "showLamp()");
    if (m_byId->isChecked()) {
        new moBoolFieldUndoCommand(text(), container(), fieldId(), on, step);
        new moInvokeBoolFieldUndoCommand(text(), container(), fieldId(), on, m_lamp, method, step);
    } else {
        new moBoolFieldUndoCommand(text(), container(), fieldName(), on, step);
        new moInvokeBoolFieldUndoCommand(text(), container(), fieldName(), on, m_lamp, method, step);
    }
    session().apply(step);
}

void FieldDock::showLamp()
{
    const osg::FieldContainerPtr switched = containerById(m_lampContainer);
    if (!switched || static_cast<osg::UInt32>(m_lampField) > switched->getType().getNumFieldDescs()) return;
    if (const osg::Field* const flag = switched->getField(static_cast<osg::UInt32>(m_lampField)))
        m_lamp->setChecked(flagOf(*flag).value_or(false));
}

/// Texts merge by value, whatever the field, so each is a step of its own.
void FieldDock::setText(const QString& value)
{
    auto* const command = m_byId->isChecked()
                              ? new moStringFieldUndoCommand(text(), container(), fieldId(), value.toStdString())
                              : new moStringFieldUndoCommand(text(), container(), fieldName(), value.toStdString());
    command->setMergeEnabled(false);
    session().apply(command);
}

void FieldDock::setList()
{
    osg::MFString list;
    for (const QString& line : m_list->toPlainText().split('\n', Qt::SkipEmptyParts))
        list.push_back(line.toStdString());
    auto* const command = new moStringsFieldUndoCommand(text(), container(), fieldName(), list);
    command->setMergeEnabled(false);
    session().apply(command);
}

void FieldDock::setImage(const osg::ImagePtr& image)
{
    m_imageNote->clear();
    if (m_byId->isChecked())
        session().apply(new moImageFieldUndoCommand(container(), fieldId(), image));
    else
        session().apply(new moImageFieldUndoCommand(container(), fieldName(), image));
}

void FieldDock::loadImage()
{
    const QImage read(m_imageFile->text());
    if (read.isNull()) {
        m_imageNote->setText(tr("'%1' is no image that can be read").arg(m_imageFile->text()));
        return;
    }
    // The first row of an image of the scene is its lowest.
    const QImage pixels = read.convertToFormat(QImage::Format_RGBA8888).mirrored();
    const osg::ImagePtr image = osg::Image::create();
    image->set(osg::Image::OSG_RGBA_PF, pixels.width(), pixels.height(), 1, 1, 1, 0., pixels.constBits());
    setImage(image);
}
