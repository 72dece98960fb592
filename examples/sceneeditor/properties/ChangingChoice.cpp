#include <sceneeditor/properties/ChangingChoice.h>

#include <QtCore/QSignalBlocker>
#include <QtWidgets/QComboBox>

void addChangingChoice(PropertyForm& form, const QString& label, const QString& name,
                       const std::function<QStringList()>& items, const PropertyForm::Read<int>& read,
                       const PropertyForm::Write<int>& write)
{
    auto* const box = new QComboBox;
    box->setObjectName(name);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(8);
    QObject::connect(box, qOverload<int>(&QComboBox::activated), &form, [=](int index) {
        const std::optional<int> shown = read();
        if (shown && *shown != index) write(index);
    });
    form.addWidget(label, box, [box, items, read, shown = QStringList()]() mutable {
        const QSignalBlocker blocked(box);
        const QStringList now = items();
        if (now != shown) {
            box->clear();
            box->addItems(now);
            shown = now;
        }
        const std::optional<int> index = read();
        box->setEnabled(index.has_value());
        box->setCurrentIndex(index.value_or(-1));
    });
}
