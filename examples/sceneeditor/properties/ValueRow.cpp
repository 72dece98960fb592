#include <sceneeditor/properties/ValueRow.h>

#include <QtCore/QSignalBlocker>
#include <QtGui/QPixmap>
#include <QtGui/QWheelEvent>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QColorDialog>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QToolButton>

#include <algorithm>

namespace {

constexpr int narrowest = 60;

QDoubleSpinBox* makeBox(const QString& name, const NumberStyle& style)
{
    auto* const box = new QDoubleSpinBox;
    box->setObjectName(name);
    box->setDecimals(style.decimals);
    box->setRange(style.least, style.most);
    box->setSingleStep(style.step);
    // What is typed is one edit; each step of the arrows is one, too, and these merge.
    box->setKeyboardTracking(false);
    // The width that its range asks for would be too much for three in a row.
    box->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    box->setMinimumWidth(narrowest);
    return box;
}

QWidget* makeLine(QHBoxLayout*& layout)
{
    auto* const line = new QWidget;
    layout = new QHBoxLayout(line);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    return line;
}

QColor colorOf(const PropertyForm::Numbers& numbers)
{
    const auto part = [&numbers](std::size_t i, double otherwise) {
        return static_cast<float>(i < numbers.size() ? std::clamp(numbers[i], 0., 1.) : otherwise);
    };
    return QColor::fromRgbF(part(0, 0), part(1, 0), part(2, 0), part(3, 1));
}

void showColor(QToolButton& swatch, const PropertyForm::Numbers& numbers)
{
    QPixmap picture(swatch.iconSize());
    picture.fill(colorOf(numbers));
    swatch.setIcon(picture);
}

/// Stays open beside the editor: each colour that is tried is written, and they merge to one step.
void openColorDialog(QWidget* parent, const PropertyForm::Numbers& numbers,
                     const std::function<void(const PropertyForm::Numbers&)>& write)
{
    auto* const dialog = new QColorDialog(colorOf(numbers), parent);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setOptions(QColorDialog::DontUseNativeDialog | QColorDialog::NoButtons);
    dialog->setOption(QColorDialog::ShowAlphaChannel, numbers.size() == 4);
    QObject::connect(dialog, &QColorDialog::currentColorChanged, parent,
                     [write, count = numbers.size()](const QColor& color) {
                         PropertyForm::Numbers changed{color.redF(), color.greenF(), color.blueF(), color.alphaF()};
                         changed.resize(count);
                         write(changed);
                     });
    dialog->show();
}

} // namespace

PropertyForm::PropertyForm(QWidget* parent) : QScrollArea(parent)
{
    auto* const content = new QWidget;
    m_layout = new QFormLayout(content);
    m_layout->setContentsMargins(4, 4, 4, 4);
    m_layout->setVerticalSpacing(3);
    m_layout->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    // Where the dock is narrow, the label stands above its boxes, and the viewport keeps its room.
    m_layout->setRowWrapPolicy(QFormLayout::WrapLongRows);
    setWidget(content);
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

QSize PropertyForm::minimumSizeHint() const
{
    const int width = widget()->minimumSizeHint().width() + verticalScrollBar()->sizeHint().width();
    return {width, QScrollArea::minimumSizeHint().height()};
}

QSize PropertyForm::sizeHint() const
{
    return {minimumSizeHint().width(), QScrollArea::sizeHint().height()};
}

bool PropertyForm::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::Wheel || static_cast<QWidget*>(watched)->hasFocus())
        return QScrollArea::eventFilter(watched, event);
    event->ignore();
    return true;
}

void PropertyForm::keepWheelFrom(QWidget* box)
{
    box->setFocusPolicy(Qt::StrongFocus);
    box->installEventFilter(this);
}

void PropertyForm::refresh()
{
    for (const auto& show : m_shows)
        show();
}

void PropertyForm::addHeading(const QString& text)
{
    auto* const heading = new QLabel(text);
    QFont font = heading->font();
    font.setBold(true);
    heading->setFont(font);
    addWidget(heading);
}

void PropertyForm::addNumber(const QString& label, const QString& name, const NumberStyle& style,
                             const Read<double>& read, const Write<double>& write)
{
    addNumbers(
        label, name, {QString()}, style, false,
        [read]() -> std::optional<Numbers> {
            const std::optional<double> number = read();
            if (!number) return std::nullopt;
            return Numbers{*number};
        },
        [write](const Numbers& numbers) { write(numbers.front()); });
}

void PropertyForm::addNumbers(const QString& label, const QString& name, const QStringList& parts,
                              const NumberStyle& style, bool isColor, const Read<Numbers>& read,
                              const Write<Numbers>& write)
{
    QHBoxLayout* layout = nullptr;
    QWidget* const line = makeLine(layout);
    line->setObjectName(parts.size() > 1 ? name : name + "-line");
    std::vector<QDoubleSpinBox*> boxes;
    for (const QString& part : parts) {
        QDoubleSpinBox* const box = makeBox(part.isEmpty() ? name : name + '-' + part, style);
        box->setToolTip(part);
        // Several boxes leave no room for arrows; the keys turn them, too.
        if (parts.size() > 1) box->setButtonSymbols(QAbstractSpinBox::NoButtons);
        layout->addWidget(box);
        keepWheelFrom(box);
        const std::size_t index = boxes.size();
        boxes.push_back(box);
        QObject::connect(box, qOverload<double>(&QDoubleSpinBox::valueChanged), this, [=](double value) {
            std::optional<Numbers> numbers = read();
            if (!numbers) return;
            (*numbers)[index] = value;
            write(*numbers);
        });
    }
    QToolButton* swatch = nullptr;
    if (isColor) {
        swatch = new QToolButton;
        swatch->setObjectName(name + "-pick");
        swatch->setToolTip(tr("Choose a colour"));
        layout->addWidget(swatch);
        QObject::connect(swatch, &QToolButton::clicked, this, [=] {
            if (const std::optional<Numbers> numbers = read())
                openColorDialog(line, *numbers, [=](const Numbers& chosen) {
                    if (read()) write(chosen);
                });
        });
    }
    addWidget(label, line, [=] {
        const std::optional<Numbers> numbers = read();
        line->setEnabled(numbers.has_value());
        for (std::size_t i = 0; i < boxes.size(); ++i) {
            const QSignalBlocker blocked(boxes[i]);
            boxes[i]->setValue(numbers ? (*numbers)[i] : 0.);
        }
        if (swatch) showColor(*swatch, numbers.value_or(Numbers{}));
    });
}

void PropertyForm::addCount(const QString& label, const QString& name, int least, int most, const Read<int>& read,
                            const Write<int>& write)
{
    auto* const box = new QSpinBox;
    box->setObjectName(name);
    box->setRange(least, most);
    box->setKeyboardTracking(false);
    keepWheelFrom(box);
    QObject::connect(box, qOverload<int>(&QSpinBox::valueChanged), this, write);
    addWidget(label, box, [=] {
        const std::optional<int> number = read();
        const QSignalBlocker blocked(box);
        box->setEnabled(number.has_value());
        box->setValue(number.value_or(0));
    });
}

void PropertyForm::addFlag(const QString& label, const QString& name, const Read<bool>& read, const Write<bool>& write)
{
    auto* const box = new QCheckBox;
    box->setObjectName(name);
    QObject::connect(box, &QCheckBox::clicked, this, write);
    addWidget(label, box, [=] {
        const std::optional<bool> flag = read();
        box->setEnabled(flag.has_value());
        box->setChecked(flag.value_or(false));
    });
}

void PropertyForm::addChoice(const QString& label, const QString& name, const QStringList& items, const Read<int>& read,
                             const Write<int>& write)
{
    auto* const box = new QComboBox;
    box->setObjectName(name);
    box->addItems(items);
    keepWheelFrom(box);
    QObject::connect(box, qOverload<int>(&QComboBox::activated), this, [=](int index) {
        const std::optional<int> shown = read();
        if (shown && *shown != index) write(index);
    });
    addWidget(label, box, [=] {
        const std::optional<int> index = read();
        box->setEnabled(index.has_value());
        box->setCurrentIndex(index.value_or(-1));
    });
}

void PropertyForm::addText(const QString& label, const QString& name, const Read<QString>& read,
                           const Write<QString>& write)
{
    auto* const edit = new QLineEdit;
    edit->setObjectName(name);
    QObject::connect(edit, &QLineEdit::editingFinished, this, [=] {
        const std::optional<QString> shown = read();
        if (shown && *shown != edit->text()) write(edit->text());
    });
    addWidget(label, edit, [=] {
        const std::optional<QString> text = read();
        edit->setEnabled(text.has_value());
        // Setting the same text would move the cursor.
        if (edit->text() != text.value_or(QString())) edit->setText(text.value_or(QString()));
    });
}

void PropertyForm::addButtons(const std::vector<Button>& buttons)
{
    QHBoxLayout* layout = nullptr;
    QWidget* const line = makeLine(layout);
    std::vector<std::function<void()>> shows;
    for (const Button& button : buttons) {
        auto* const push = new QPushButton(button.text);
        push->setObjectName(button.name);
        push->setAutoDefault(false);
        layout->addWidget(push);
        QObject::connect(push, &QPushButton::clicked, this, button.click);
        if (button.isEnabled) shows.push_back([push, isEnabled = button.isEnabled] { push->setEnabled(isEnabled()); });
    }
    addWidget(line, [shows] {
        for (const auto& show : shows)
            show();
    });
}

void PropertyForm::addWidget(QWidget* widget, const std::function<void()>& show)
{
    m_layout->addRow(widget);
    if (show) m_shows.push_back(show);
}

void PropertyForm::addWidget(const QString& label, QWidget* widget, const std::function<void()>& show)
{
    m_layout->addRow(label, widget);
    if (show) m_shows.push_back(show);
}
