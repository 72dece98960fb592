#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtWidgets/QScrollArea>

#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

class QFormLayout;

/// The range, the step of the arrows, and the shown decimals of the numbers of a row.
struct NumberStyle
{
    double least = -1e6;
    double most = 1e6;
    double step = 0.1;
    int decimals = 3;
};

/// The rows of a property dock: each shows one value, and hands what the user made of it to a function.
///
/// A row is a label, a name, how the value is read and what is done with a new one, which is to apply a command. refresh()
/// reads all rows again; a row whose read function returns nothing is disabled. Widgets send no signals while they are shown,
/// so that a refresh() never edits. Each row's widget has the row's name as its object name; the boxes of a vector add -x, -y, -z, -w
/// to it, those of a colour -r, -g, -b, -a, its swatch -pick.
class PropertyForm : public QScrollArea
{
public:
    template<class T>
    using Read = std::function<std::optional<T>()>;
    template<class T>
    using Write = std::function<void(const T&)>;
    using Numbers = std::vector<double>;

    explicit PropertyForm(QWidget* parent = nullptr);

    /// As wide as its rows need: only the height scrolls.
    QSize minimumSizeHint() const override;
    QSize sizeHint() const override;

    /// The wheel turns a box only once it has the focus: else it scrolls the form.
    bool eventFilter(QObject* watched, QEvent* event) override;

    /// Shows what the scene has now.
    void refresh();

    void addHeading(const QString& text);
    void addNumber(const QString& label, const QString& name, const NumberStyle& style, const Read<double>& read,
                   const Write<double>& write);
    /// A whole number.
    void addCount(const QString& label, const QString& name, int least, int most, const Read<int>& read,
                  const Write<int>& write);
    void addFlag(const QString& label, const QString& name, const Read<bool>& read, const Write<bool>& write);
    /// The value is the index of the item; -1 shows none.
    void addChoice(const QString& label, const QString& name, const QStringList& items, const Read<int>& read,
                   const Write<int>& write);
    /// Written when the user presses Enter or leaves the field with another text than before.
    void addText(const QString& label, const QString& name, const Read<QString>& read, const Write<QString>& write);

    /// For vectors of floats, as osg::Vec3f. The numbers that the user leaves alone are written as they were read, not as shown.
    template<class Vector>
    void addVector(const QString& label, const QString& name, const NumberStyle& style, const Read<Vector>& read,
                   const Write<Vector>& write)
    {
        addNumbers(label, name, parts(size<Vector>(), "xyzw"), style, false, reader(read), writer(write));
    }
    /// For osg::Color3f and osg::Color4f: boxes, and a swatch that opens a colour dialog whose choices are written at once.
    template<class Color>
    void addColor(const QString& label, const QString& name, const Read<Color>& read, const Write<Color>& write)
    {
        addNumbers(label, name, parts(size<Color>(), "rgba"), {0, 1, 0.05, 3}, true, reader(read), writer(write));
    }

    /// A row of buttons, all of which stand in one line.
    struct Button
    {
        QString text;
        QString name;
        std::function<bool()> isEnabled;
        std::function<void()> click;
    };
    void addButtons(const std::vector<Button>& buttons);

    /// Any other widget over the whole width; refresh() calls the function, if there is one.
    void addWidget(QWidget* widget, const std::function<void()>& show = {});
    /// Any other widget beside a label.
    void addWidget(const QString& label, QWidget* widget, const std::function<void()>& show = {});

private:
    void keepWheelFrom(QWidget* box);
    void addNumbers(const QString& label, const QString& name, const QStringList& parts, const NumberStyle& style,
                    bool isColor, const Read<Numbers>& read, const Write<Numbers>& write);

    template<class Vector>
    static constexpr std::size_t size()
    {
        return sizeof(Vector) / sizeof(float);
    }
    static QStringList parts(std::size_t count, const QString& letters)
    {
        return letters.left(static_cast<int>(count)).split(QString(), Qt::SkipEmptyParts);
    }
    template<class Vector>
    static Read<Numbers> reader(const Read<Vector>& read)
    {
        return [read]() -> std::optional<Numbers> {
            const std::optional<Vector> vector = read();
            if (!vector) return std::nullopt;
            Numbers numbers;
            for (std::size_t i = 0; i < size<Vector>(); ++i)
                numbers.push_back(static_cast<double>((*vector)[static_cast<unsigned>(i)]));
            return numbers;
        };
    }
    template<class Vector>
    static Write<Numbers> writer(const Write<Vector>& write)
    {
        return [write](const Numbers& numbers) {
            Vector vector;
            for (std::size_t i = 0; i < size<Vector>(); ++i)
                vector[static_cast<unsigned>(i)] = static_cast<float>(numbers[i]);
            write(vector);
        };
    }

    QFormLayout* m_layout;
    std::vector<std::function<void()>> m_shows;
};
