#include <sceneeditor/properties/LensFlareDock.h>

#include <sceneeditor/EditorSession.h>
#include <sceneeditor/properties/FieldRows.h>
#include <sceneeditor/properties/LightSelection.h>

#include <moUndoStack/core/moGenericFunctionUndoCommand.h>
#include <moUndoStack/core/moUndoScopes.h>
#include <moUndoStack/field/moFieldBaseUndoCommand.h>
#include <moUndoStack/light/moLensFlareListCommands.h>
#include <moUndoStack/light/moLightUndoCommand.h>
#include <moUndoStack/light/moSetLensFlareEffectCommand.h>

#include <moOpenSGUtils/moLights.h>
#include <moOpenSGUtils/moNodePtr.h>

#include <OpenSG/OSGFieldContainerFactory.h>
#include <OpenSG/OSGRefPtr.h>

#include <QtCore/QSet>
#include <QtCore/QSignalBlocker>
#include <QtWidgets/QTreeWidget>

#include <map>

namespace {

using osg::LensFlareEffect;

constexpr int idRole = Qt::UserRole;
constexpr int lineRole = Qt::UserRole + 1;

constexpr NumberStyle amountStyle{0., 1e6, 0.1, 3};
constexpr NumberStyle positionStyle{-10., 10., 0.1, 3};
constexpr NumberStyle angleStyle{-360., 360., 5., 2};

osg::FieldContainerPtr containerOf(osg::UInt32 id)
{
    return osg::FieldContainerFactory::the()->getContainer(id);
}

osg::UInt32 idOf(const QTreeWidgetItem& item)
{
    return item.data(0, idRole).toUInt();
}

} // namespace

LensFlareDock::LensFlareDock(EditorSession& session, QWidget* parent)
    : PropertyDock(tr("Lens Flare"), "flare-dock", session, parent), m_list(new QTreeWidget)
{
    addEffectRows();
    addParts();
    addPartRows();
    form().refresh();
}

void LensFlareDock::addEffectRows()
{
    const auto container = [this]() -> osg::FieldContainerPtr { return effect(); };
    const auto apply = [this](moUndoCommand* command) { session().apply(command); };
    FieldRows rows(form(), "Light Commands", container, apply);
    const auto whetherEffect = [this](bool value) { return effect() ? std::optional<bool>(value) : std::nullopt; };

    form().addFlag(
        tr("Lens flare"), "flare-present",
        [this]() -> std::optional<bool> {
            if (currentLight(session()) == osg::NullFC) return std::nullopt;
            return effect() != osg::NullFC;
        },
        [this](bool present) { setPresent(present); });
    form().addFlag(
        tr("Active"), "flare-active",
        [this, whetherEffect] { return whetherEffect(effect() && effect()->getIsActive()); },
        [this](bool active) {
            // Goes through the light: whichever effect it has is switched.
            const QString text = active ? tr("Show Lens Flare") : tr("Hide Lens Flare");
            session().apply(new moLightsFunctionUndoCommand<bool>(
                moUndoString(text, text, "Light Commands"), currentLight(session()), active,
                [](const osg::NodePtr& light) {
                    const osg::LensFlareEffectPtr flare = moLights::getLensFlareEffect(light);
                    return flare && flare->getIsActive();
                },
                [](const osg::NodePtr& light, bool value) {
                    const osg::LensFlareEffectPtr flare = moLights::getLensFlareEffect(light);
                    if (!flare) return;
                    const osg::CPEditor edit(flare, LensFlareEffect::IsActiveFieldMask);
                    flare->setIsActive(value);
                },
                nullptr));
        });
    form().addFlag(
        tr("Shine of light"), "flare-use-light",
        [this, whetherEffect] { return whetherEffect(effect() && effect()->getUseLightProperties()); },
        [this](bool use) { setUseLight(use); });
    rows.addChoice(tr("Type"), "flare-type", "lensFlareType", {tr("Round"), tr("Anamorphic")});
    rows.addColor(tr("Colour"), "flare-color", "color", apply);
    rows.addNumber(tr("Intensity"), "flare-intensity", "intensity", amountStyle);
    rows.addNumber(tr("Size"), "flare-size", "size", amountStyle);
    rows.addNumber(tr("By angle"), "flare-angular", "angularIntensity", amountStyle);
    const auto hasEffect = [this] { return effect() != osg::NullFC; };
    form().addButtons(
        {{tr("Round Preset"), "flare-round", hasEffect, [this] { applyPreset(LensFlareEffect::RoundFlare); }},
         {tr("Anamorphic Preset"), "flare-anamorphic", hasEffect,
          [this] { applyPreset(LensFlareEffect::AnamorphicFlare); }}});
}

void LensFlareDock::addParts()
{
    m_list->setObjectName("flare-parts");
    m_list->setHeaderHidden(true);
    m_list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    constexpr int rows = 7;
    m_list->setMinimumHeight(fontMetrics().height() * rows);
    form().addWidget(m_list, [this] { showParts(); });
    connect(m_list, &QTreeWidget::itemSelectionChanged, &form(), &PropertyForm::refresh);
    connect(m_list, &QTreeWidget::currentItemChanged, this, [this](const QTreeWidgetItem* item) {
        if (item) m_current = idOf(*item);
        form().refresh();
    });

    const auto hasEffect = [this] { return effect() != osg::NullFC; };
    form().addButtons(
        {{tr("Glow"), "flare-add-glow", hasEffect, [this] { addElement(osg::LensFlareElement::create()); }},
         {tr("Line"), "flare-add-line", hasEffect, [this] { addElement(osg::LensFlareGhostLine::create()); }},
         {tr("Ghost"), "flare-add-ghost", [this] { return currentLine() != osg::NullFC; }, [this] { addGhost(); }},
         {tr("Remove"), "flare-remove", [this] { return !m_list->selectedItems().isEmpty(); },
          [this] { removeSelected(); }}});
    const std::map<const char*, QString> tips{{"flare-add-glow", tr("Add a glow")},
                                              {"flare-add-line", tr("Add a line of ghosts")},
                                              {"flare-add-ghost", tr("Add a ghost to the line in the list")},
                                              {"flare-remove", tr("Remove what is selected in the list")}};
    for (const auto& [name, tip] : tips)
        findChild<QWidget*>(name)->setToolTip(tip);
}

void LensFlareDock::addPartRows()
{
    const auto apply = [this](moUndoCommand* command) { session().apply(command); };
    FieldRows rows(
        form(), "Light Commands", [this] { return currentPart(); }, apply);
    rows.addFlag(tr("Active"), "part-active", "isActive");
    rows.addColor(tr("Colour"), "part-color", "color", apply);
    rows.addNumber(tr("Intensity"), "part-intensity", "intensity", amountStyle);
    rows.addNumber(tr("Size"), "part-size", "size", amountStyle);
    rows.addNumber(tr("Position"), "part-position", "position", positionStyle);
    rows.addNumber(tr("Angle"), "part-angle", "angle", angleStyle);
}

osg::LensFlareEffectPtr LensFlareDock::effect() const
{
    return moLights::getLensFlareEffect(currentLight(session()));
}

/// The functions hold the effect: undo and redo set the same one, which the commands for its parts know by id.
void LensFlareDock::setPresent(bool present)
{
    const osg::NodePtr light = currentLight(session());
    if (light == osg::NullFC || present == (effect() != osg::NullFC)) return;
    const osg::RefPtr<osg::LensFlareEffectPtr> flare(present ? LensFlareEffect::create() : effect());
    const auto set = [light = moNodePtr(light), flare] { moLights::setLensFlareEffect(light.getPtr(), flare); };
    const auto clear = [light = moNodePtr(light)] { moLights::setLensFlareEffect(light.getPtr(), osg::NullFC); };
    const QString text = present ? tr("Add Lens Flare") : tr("Remove Lens Flare");
    const moUndoString wording(text, text, "Light Commands");
    if (present)
        session().apply(new moGenericFunctionUndoCommand(wording, clear, set, nullptr));
    else
        session().apply(new moGenericFunctionUndoCommand(wording, set, clear, nullptr));
}

/// A switch of the effect chooses its type anew, too. The command for all settings takes both back.
void LensFlareDock::setUseLight(bool use)
{
    if (!effect()) return;
    const osg::RefPtr<osg::LensFlareEffectPtr> source(
        moLights::cloneLensFlareEffect(effect(), LensFlareEffectCloneSharedElements));
    source->setUseLightProperties(use);
    session().apply(new moSetLensFlareEffectCommand(source, effect(), nullptr));
}

void LensFlareDock::applyPreset(LensFlareEffect::Type type)
{
    if (!effect()) return;
    const osg::RefPtr<osg::LensFlareEffectPtr> preset(LensFlareEffect::create());
    preset->setLensFlareType(type);
    const osg::LensFlareElementPtr glow = osg::LensFlareElement::create();
    const osg::LensFlareGhostLinePtr line = osg::LensFlareGhostLine::create();
    preset->addElement(glow);
    preset->addElement(line);
    const bool isRound = type == LensFlareEffect::RoundFlare;
    preset->setSize(isRound ? 1.f : 2.5f);
    preset->setColor(isRound ? osg::Color3f(1.f, 0.9f, 0.7f) : osg::Color3f(0.4f, 0.6f, 1.f));
    for (const float position : {0.5f, 1.3f, 1.9f}) {
        const osg::LensFlareGhostPtr ghost = osg::LensFlareGhost::create();
        ghost->setPosition(position);
        line->addGhost(ghost);
    }
    session().apply(new moSetLensFlareEffectCommand(preset, effect(), nullptr));
}

std::vector<LensFlareDock::Part> LensFlareDock::parts() const
{
    std::vector<Part> found;
    const osg::LensFlareEffectPtr flare = effect();
    if (!flare) return found;
    for (const osg::LensFlareElementPtr& element : flare->getElements()) {
        const osg::UInt32 id = osg::getContainerId(element);
        found.push_back({id, 0});
        const auto line = osg::LensFlareGhostLinePtr::dcast(element);
        if (!line) continue;
        for (const osg::LensFlareGhostPtr& ghost : line->getGhosts())
            found.push_back({osg::getContainerId(ghost), id});
    }
    return found;
}

/// Makes the items anew only if the parts are others, so that an edit of a part leaves selection and scroll bar alone. A
/// part that is put back is the current one again if it was.
void LensFlareDock::showParts()
{
    const std::vector<Part> now = parts();
    m_list->setEnabled(effect() != osg::NullFC);
    if (now == m_shown) return;
    const QSignalBlocker blocked(m_list);
    QSet<osg::UInt32> selected;
    for (const QTreeWidgetItem* item : m_list->selectedItems())
        selected.insert(idOf(*item));
    m_list->clear();
    m_shown = now;
    QTreeWidgetItem* element = nullptr;
    for (const Part& part : now) {
        const bool isGhost = part.line != 0;
        auto* const item = isGhost ? new QTreeWidgetItem(element) : new QTreeWidgetItem(m_list);
        if (!isGhost) element = item;
        const bool isLine = !isGhost && osg::LensFlareGhostLinePtr::dcast(containerOf(part.id));
        const int number = isGhost ? element->indexOfChild(item) + 1 : m_list->indexOfTopLevelItem(item) + 1;
        item->setText(0, (isGhost ? tr("Ghost %1") : isLine ? tr("%1: Line of Ghosts") : tr("%1: Glow")).arg(number));
        item->setData(0, idRole, part.id);
        item->setData(0, lineRole, part.line);
    }
    m_list->expandAll();
    if (itemOf(m_current)) makeCurrent(m_current);
    if (selected.isEmpty()) return;
    for (QTreeWidgetItemIterator item(m_list); *item; ++item)
        (*item)->setSelected(selected.contains(idOf(**item)));
}

QTreeWidgetItem* LensFlareDock::itemOf(osg::UInt32 id) const
{
    for (QTreeWidgetItemIterator item(m_list); *item; ++item) {
        if (idOf(**item) == id) return *item;
    }
    return nullptr;
}

/// Selects the item alone. The list itself would ask which keys the user holds down.
void LensFlareDock::makeCurrent(osg::UInt32 id)
{
    m_list->setCurrentItem(itemOf(id), 0, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

osg::FieldContainerPtr LensFlareDock::currentPart() const
{
    const QTreeWidgetItem* const item = m_list->currentItem();
    return item ? containerOf(idOf(*item)) : osg::FieldContainerPtr(osg::NullFC);
}

/// The line that is current in the list, or that of the ghost that is.
osg::LensFlareGhostLinePtr LensFlareDock::currentLine() const
{
    const QTreeWidgetItem* const item = m_list->currentItem();
    if (!item) return osg::NullFC;
    const osg::UInt32 line = item->data(0, lineRole).toUInt();
    return osg::LensFlareGhostLinePtr::dcast(containerOf(line ? line : idOf(*item)));
}

void LensFlareDock::addElement(const osg::LensFlareElementPtr& element)
{
    const osg::UInt32 id = osg::getContainerId(element);
    session().apply(
        new moAddLensFlareElementCommand(currentLight(session()), {osg::LensFlareElementPtr(element)}, nullptr));
    makeCurrent(id);
}

void LensFlareDock::addGhost()
{
    if (!currentLine()) return;
    const osg::LensFlareGhostPtr ghost = osg::LensFlareGhost::create();
    ghost->setPosition(1.f);
    const osg::UInt32 id = osg::getContainerId(ghost);
    session().apply(new moAddGhostCommand(currentLine(), {ghost}, nullptr));
    makeCurrent(id);
}

/// One command for the elements and one for the ghosts of each line that stays: one step.
void LensFlareDock::removeSelected()
{
    std::vector<unsigned int> elements;
    std::map<osg::UInt32, std::vector<unsigned int>> ghosts;
    for (const QTreeWidgetItem* item : m_list->selectedItems()) {
        if (!item->parent())
            elements.push_back(idOf(*item));
        else if (!item->parent()->isSelected())
            ghosts[idOf(*item->parent())].push_back(idOf(*item));
    }
    if (elements.empty() && ghosts.empty()) return;
    const QString text = tr("Remove Parts of Lens Flare");
    const moCompositionScope composition(session().edits(), text, text);
    for (const auto& [line, ids] : ghosts) {
        session().apply(new moRemoveGhostCommand(osg::LensFlareGhostLinePtr::dcast(containerOf(line)), ids, nullptr));
    }
    if (!elements.empty())
        session().apply(new moRemoveLensFlareElementCommand(currentLight(session()), elements, nullptr));
}
