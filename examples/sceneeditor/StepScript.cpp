#include <sceneeditor/StepScript.h>

#include <sceneeditor/EditorSession.h>
#include <sceneeditor/EditorWindow.h>
#include <sceneeditor/SceneEdits.h>
#include <sceneeditor/Viewport.h>

#include <QAction>
#include <QtCore/QItemSelectionModel>
#include <QtCore/QMap>
#include <QtCore/QRegularExpression>
#include <QtGui/QKeyEvent>
#include <QtGui/QKeySequence>
#include <QtGui/QMouseEvent>
#include <QtGui/QWheelEvent>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QApplication>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDockWidget>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPlainTextEdit>

#include <algorithm>

namespace {

constexpr int movesOfADrag = 10;

[[noreturn]] void refuse(const QString& reason)
{
    throw StepError(reason.toStdString());
}

QStringList wordsOf(const QString& line)
{
    QStringList words;
    static const QRegularExpression word(QStringLiteral("\"([^\"]*)\"|(#.*)|(\\S+)"));
    auto matches = word.globalMatch(line);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        if (match.capturedStart(2) >= 0) break;
        words.append(match.capturedStart(1) >= 0 ? match.captured(1) : match.captured(3));
    }
    return words;
}

double number(const QString& word)
{
    bool ok = false;
    const double value = word.toDouble(&ok);
    if (!ok) refuse(QStringLiteral("no number: %1").arg(word));
    return value;
}

QPoint point(const QString& x, const QString& y)
{
    return QPointF(number(x), number(y)).toPoint();
}

void sendMouse(QWidget& widget, QEvent::Type type, const QPoint& at, Qt::MouseButton button, Qt::MouseButtons buttons)
{
    QMouseEvent event(type, at, widget.mapToGlobal(at), button, buttons, Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
}

void sendKey(QWidget& widget, int key, Qt::KeyboardModifiers modifiers, const QString& text = {})
{
    QKeyEvent press(QEvent::KeyPress, key, modifiers, text);
    QApplication::sendEvent(&widget, &press);
    QKeyEvent release(QEvent::KeyRelease, key, modifiers, text);
    QApplication::sendEvent(&widget, &release);
}

/// Makes the item with that text in any column the current one, and the only one that is selected.
void choose(QAbstractItemView& view, const QString& text)
{
    QAbstractItemModel& model = *view.model();
    for (int column = 0; column < model.columnCount(); ++column) {
        const QModelIndexList found = model.match(model.index(0, column), Qt::DisplayRole, text, 1,
                                                  Qt::MatchExactly | Qt::MatchRecursive | Qt::MatchCaseSensitive);
        if (found.isEmpty()) continue;
        // Not by the view, which would ask which keys the user holds down.
        view.selectionModel()->setCurrentIndex(found.front(),
                                               QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
        return;
    }
    refuse(QStringLiteral("there is no item '%1'").arg(text));
}

} // namespace

template<class T>
T& StepScript::find(const QString& name)
{
    T* const found = m_window.findChild<T*>(name);
    if (!found) refuse(QStringLiteral("there is no '%1'").arg(name));
    return *found;
}

void StepScript::run(const QString& script)
{
    int number = 0;
    for (const QString& line : script.split('\n')) {
        ++number;
        const QStringList words = wordsOf(line);
        if (words.isEmpty()) continue;
        try {
            runStep(words);
        } catch (const StepError& error) {
            refuse(QStringLiteral("line %1, %2: %3").arg(number).arg(words.first(), error.what()));
        }
        QCoreApplication::processEvents();
    }
}

void StepScript::runStep(const QStringList& words)
{
    Viewport& viewport = m_window.viewport();
    const QString& verb = words.first();
    const auto takes = [&words](int fewest, int most) {
        if (words.size() - 1 < fewest || words.size() - 1 > most) refuse("wrong number of words");
    };
    if (verb == "size") {
        takes(2, 2);
        const QPoint corner = point(words[1], words[2]);
        m_window.resize(corner.x(), corner.y());
    } else if (verb == "select") {
        select(words.mid(1));
    } else if (verb == "pick") {
        takes(2, 2);
        const QPoint at = QPointF(number(words[1]) * viewport.width(), number(words[2]) * viewport.height()).toPoint();
        drag(at, QPoint(), Qt::LeftButton, false);
    } else if (verb == "drag") {
        takes(3, 4);
        static const QMap<QString, Handles::Part> parts{
            {"x", Handles::X}, {"y", Handles::Y}, {"z", Handles::Z}, {"centre", Handles::Centre}};
        if (!parts.contains(words[1])) refuse("no such handle");
        if (!viewport.hasHandles()) refuse("there are no handles");
        if (words.size() == 5 && words[4] != "cancel") refuse("what does the last word mean?");
        drag(viewport.graspOf(parts[words[1]]), point(words[2], words[3]), Qt::LeftButton, words.size() == 5);
    } else if (verb == "orbit" || verb == "pan") {
        takes(2, 2);
        drag(viewport.rect().center(), point(words[1], words[2]), verb == "pan" ? Qt::RightButton : Qt::MiddleButton,
             false);
    } else if (verb == "zoom") {
        takes(1, 1);
        const QPointF at = viewport.rect().center();
        const int turn = static_cast<int>(number(words[1]) * 120);
        QWheelEvent event(at, viewport.mapToGlobal(at.toPoint()), QPoint(), QPoint(0, turn), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&viewport, &event);
    } else if (verb == "trigger") {
        takes(1, 1);
        auto& action = find<QAction>(words[1]);
        if (!action.isEnabled()) refuse("it is disabled");
        action.trigger();
    } else if (verb == "click") {
        takes(1, 1);
        auto& button = find<QAbstractButton>(words[1]);
        if (!button.isEnabled()) refuse("it is disabled");
        button.click();
    } else if (verb == "set") {
        takes(2, 2);
        setValue(find<QWidget>(words[1]), words[2]);
    } else if (verb == "press") {
        takes(2, 2);
        const QKeySequence keys(words[2]);
        if (keys.isEmpty()) refuse("no such key");
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
        const int key = keys[0];
#else
        const int key = keys[0].toCombined();
#endif
        sendKey(find<QWidget>(words[1]), key & ~static_cast<int>(Qt::KeyboardModifierMask),
                Qt::KeyboardModifiers(key & static_cast<int>(Qt::KeyboardModifierMask)));
    } else if (verb == "raise") {
        takes(1, 1);
        auto& dock = find<QDockWidget>(words[1]);
        dock.show();
        dock.raise();
    } else {
        refuse("no such step");
    }
}

void StepScript::select(const QStringList& names)
{
    const std::vector<osg::NodePtr> nodes = nodesOf(m_session);
    std::vector<osg::NodePtr> selected;
    for (const QString& name : names) {
        const auto found = std::find_if(nodes.begin(), nodes.end(),
                                        [&name](const osg::NodePtr& node) { return nameOf(node) == name; });
        if (found == nodes.end()) refuse(QStringLiteral("there is no node '%1'").arg(name));
        selected.push_back(*found);
    }
    m_session.select(selected);
}

void StepScript::drag(QPoint from, QPoint by, Qt::MouseButton button, bool cancelled)
{
    Viewport& viewport = m_window.viewport();
    sendMouse(viewport, QEvent::MouseButtonPress, from, button, button);
    for (int move = 1; move <= movesOfADrag && !by.isNull(); ++move)
        sendMouse(viewport, QEvent::MouseMove, from + by * move / movesOfADrag, Qt::NoButton, button);
    if (cancelled) sendKey(viewport, Qt::Key_Escape, Qt::NoModifier);
    sendMouse(viewport, QEvent::MouseButtonRelease, from + by, button, Qt::NoButton);
}

void StepScript::setValue(QWidget& widget, const QString& value)
{
    if (!widget.isEnabled()) refuse("it is disabled");
    if (auto* const box = qobject_cast<QDoubleSpinBox*>(&widget)) {
        box->setValue(number(value));
    } else if (auto* const whole = qobject_cast<QSpinBox*>(&widget)) {
        whole->setValue(static_cast<int>(number(value)));
    } else if (auto* const combo = qobject_cast<QComboBox*>(&widget)) {
        const int item = combo->findText(value);
        if (item < 0) refuse(QStringLiteral("there is no item '%1'").arg(value));
        combo->setCurrentIndex(item);
        Q_EMIT combo->activated(item);
    } else if (auto* const edit = qobject_cast<QLineEdit*>(&widget)) {
        // As typed: an edit is finished by leaving the field.
        edit->clear();
        edit->insert(value);
        Q_EMIT edit->editingFinished();
    } else if (auto* const list = qobject_cast<QPlainTextEdit*>(&widget)) {
        list->setPlainText(value);
    } else if (auto* const view = qobject_cast<QAbstractItemView*>(&widget)) {
        choose(*view, value);
    } else if (auto* const button = qobject_cast<QAbstractButton*>(&widget)) {
        if (value != "on" && value != "off") refuse("on or off, please");
        if (button->isChecked() != (value == "on")) button->click();
    } else {
        refuse("it takes no value");
    }
}
