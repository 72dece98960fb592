#include <sceneeditor/properties/VariantDock.h>

#include <sceneeditor/EditorSession.h>
#include <sceneeditor/properties/ValueRow.h>

#include <moOpenSGUtils/moNodeUtils.h>
#include <moOpenSGUtils/moTransformVariantUtils.h>

#include <moUndoStack/core/moUndoScopes.h>
#include <moUndoStack/moUndoCommands.h>

#include <QtCore/QSet>
#include <QtCore/QSignalBlocker>
#include <QtWidgets/QListWidget>

#include <algorithm>

namespace {

using Variant = osg::TransformVariant;

constexpr int idRole = Qt::UserRole;

/// The list follows the scene, so no command needs to call it.
void ignoreList(unsigned int, int, bool) {}

} // namespace

VariantDock::VariantDock(EditorSession& session, QWidget* parent)
    : PropertyDock(tr("Variants"), "variant-dock", session, parent), m_list(new QListWidget)
{
    addList();
    addListButtons();
    addOptions();
    form().refresh();
}

void VariantDock::addList()
{
    m_list->setObjectName("variant-list");
    m_list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_list->setMinimumHeight(80);
    connect(m_list, &QListWidget::itemSelectionChanged, this, [this] { form().refresh(); });
    connect(m_list, &QListWidget::itemActivated, this, [this] { apply(); });
    form().addWidget(m_list, [this] { showList(); });
}

void VariantDock::addListButtons()
{
    const auto hasTransform = [this] { return moNodeUtils::getTransform3D(node(), -1) != osg::NullFC; };
    const auto hasCurrent = [this] { return current() >= 0; };
    form().addButtons({
        {tr("Record"), "variant-record", hasTransform, [this] { record(count()); }},
        {tr("Insert"), "variant-insert", hasCurrent, [this] { record(current()); }},
        {tr("Remove"), "variant-remove", hasCurrent, [this] { remove(); }},
    });
    form().addButtons({
        {tr("Up"), "variant-up", [this] { return current() > 0 && selected().front() > 0; }, [this] { move(-1); }},
        {tr("Down"), "variant-down", [this] { return current() >= 0 && selected().back() < count() - 1; },
         [this] { move(1); }},
        {tr("Apply"), "variant-apply", hasCurrent, [this] { apply(); }},
    });
    form().addText(
        tr("Name"), "variant-name",
        [this]() -> std::optional<QString> {
            if (current() < 0) return std::nullopt;
            return QString::fromStdString(moTransformVariantUtils::getName(variant()));
        },
        [this](const QString& name) { rename(name); });
}

void VariantDock::addOptions()
{
    const struct
    {
        const char* label;
        const char* name;
        osg::UInt64 flag;
    } options[] = {
        {QT_TR_NOOP("Translation"), "apply-translation", Variant::ApplyTranslation},
        {QT_TR_NOOP("Rotation"), "apply-rotation", Variant::ApplyRotation},
        {QT_TR_NOOP("Rotation order"), "apply-order", Variant::ApplyEulerRotationOrder},
        {QT_TR_NOOP("Rotation mode"), "apply-mode", Variant::ApplyRotationMode},
        {QT_TR_NOOP("Rotation pivot"), "apply-rotation-pivot", Variant::ApplyRotationPivot},
        {QT_TR_NOOP("  its translation"), "apply-rotation-pivot-translation", Variant::ApplyRotationPivotTranslation},
        {QT_TR_NOOP("  its angles"), "apply-orientation", Variant::ApplyRotationPivotOrientation},
        {QT_TR_NOOP("  its direction"), "apply-direction", Variant::ApplyRotationDirection},
        {QT_TR_NOOP("Scale"), "apply-scale", Variant::ApplyScale},
        {QT_TR_NOOP("Scale pivot"), "apply-scale-pivot", Variant::ApplyScalePivot},
        {QT_TR_NOOP("  its translation"), "apply-scale-pivot-translation", Variant::ApplyScalePivotTranslation},
    };
    form().addHeading(tr("Apply"));
    for (const auto& option : options)
        form().addFlag(
            tr(option.label), option.name,
            [this, flag = option.flag]() -> std::optional<bool> {
                if (current() < 0) return std::nullopt;
                return (moTransformVariantUtils::getApplyFlags(variant()) & flag) != 0;
            },
            [this, flag = option.flag](bool on) { setFlag(flag, on); });
}

/// Variants that were selected stay so, wherever they are by now. The one that the node is supposed to show is bold.
void VariantDock::showList()
{
    const QSignalBlocker blocked(m_list);
    QSet<unsigned int> ids;
    for (const QListWidgetItem* item : m_list->selectedItems())
        ids.insert(item->data(idRole).toUInt());
    while (m_list->count() > count())
        delete m_list->takeItem(m_list->count() - 1);
    while (m_list->count() < count())
        m_list->addItem(QString());
    const int shown = moTransformVariantUtils::getSupposedState(moNodeUtils::getTransform3D(node(), -1));
    for (int row = 0; row < count(); ++row) {
        const osg::TransformVariantPtr each = moNodeUtils::getTransformVariant(node(), static_cast<osg::UInt64>(row));
        QListWidgetItem* const item = m_list->item(row);
        item->setText(QString::fromStdString(moTransformVariantUtils::getName(each)));
        item->setData(idRole, osg::getContainerId(each));
        item->setSelected(ids.contains(osg::getContainerId(each)));
        QFont font = m_list->font();
        font.setBold(row == shown);
        item->setFont(font);
    }
}

int VariantDock::count() const
{
    return static_cast<int>(moNodeUtils::getTransformVariantCount(node()));
}

std::vector<int> VariantDock::selected() const
{
    std::vector<int> rows;
    for (const QModelIndex& index : m_list->selectionModel()->selectedRows())
        rows.push_back(index.row());
    std::sort(rows.begin(), rows.end());
    return rows;
}

int VariantDock::current() const
{
    const std::vector<int> rows = selected();
    return rows.empty() || rows.back() >= count() ? -1 : rows.back();
}

osg::TransformVariantPtr VariantDock::variant() const
{
    if (current() < 0) return osg::NullFC;
    return moNodeUtils::getTransformVariant(node(), static_cast<osg::UInt64>(current()));
}

/// Makes a variant of the pose that the node has now.
void VariantDock::record(int row)
{
    const osg::TransformVariantPtr recorded = moTransformVariantUtils::recordTransformVariant(
        moNodeUtils::getTransform3D(node(), -1), tr("Pose %1").arg(count() + 1).toStdString());
    session().apply(
        new moAddTransformVariantUndoCommand(node(), recorded, static_cast<osg::UInt64>(row), nullptr, ignoreList));
}

void VariantDock::remove()
{
    std::vector<int> rows = selected();
    // The commands of a composite are made before the first is run: the highest position first.
    std::reverse(rows.begin(), rows.end());
    const auto removeAt = [this](int row) {
        session().apply(
            new moRemoveTransformSwitchVariantUndoCommand(node(), static_cast<osg::UInt64>(row), nullptr, ignoreList));
    };
    if (rows.size() == 1) {
        removeAt(rows.front());
        return;
    }
    const QString text = tr("Remove %1 Variants").arg(rows.size());
    const moCompositionScope composition(session().edits(), text, text);
    for (const int row : rows)
        removeAt(row);
}

void VariantDock::move(int by)
{
    const std::vector<int> rows = selected();
    const auto ignore = [](unsigned int, const QList<int>&, const QList<int>&) {};
    // Those that are moved together stand together afterwards.
    const int to = std::clamp(rows.front() + by, 0, count() - static_cast<int>(rows.size()));
    if (rows.size() == 1)
        session().apply(new moTransformVariantMoveCommand(node(), rows.front(), to, nullptr, ignore));
    else
        session().apply(new moTransformVariantMoveCommand(node(), rows, to, nullptr, ignore));
}

void VariantDock::rename(const QString& name)
{
    session().apply(new moTransformVariantNameUndoCommand(variant(), name.toStdString(), nullptr,
                                                          [](const std::string&, const std::string&) {}));
}

void VariantDock::setFlag(osg::UInt64 flag, bool on)
{
    const osg::UInt64 flags = moTransformVariantUtils::getApplyFlags(variant());
    session().apply(
        new moTransformVariantOptionsUndoCommand(variant(), on ? flags | flag : flags & ~flag, nullptr, [] {}));
}

void VariantDock::apply()
{
    session().apply(new moApplyTransformationVariantUndoCommand(node(), current(), true, nullptr, {}));
}
