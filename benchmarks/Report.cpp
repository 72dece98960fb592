#include <Report.h>

#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QStringList>

#include <algorithm>
#include <iterator>
#include <stdexcept>

namespace bench {

namespace {

constexpr const char* judgedNames[] = {"", "ratio", "ours"}; // by Target::Of

void writeText(const std::string& file, const QByteArray& text)
{
    QFile out(QString::fromStdString(file));
    if (!out.open(QIODevice::WriteOnly) || out.write(text) != text.size() || !out.flush())
        throw std::runtime_error("cannot write " + file);
}

/// The first row of the same name and unit; null for that row itself, or if one of its sides costs nothing.
const Row* startOfGrowth(const std::vector<Row>& rows, const Row& row)
{
    const auto isSame = [&](const Row& other) { return other.name == row.name && other.unit == row.unit; };
    const Row& first = *std::find_if(rows.begin(), rows.end(), isSame);
    return &first == &row || first.ours <= 0.0 || first.bare <= 0.0 ? nullptr : &first;
}

QString fixed(double number, int decimals)
{
    return QString::number(number, 'f', decimals);
}

/// Two numbers of ours and the bare side, or of a target.
QString pair(double first, double second, int decimals)
{
    return fixed(first, decimals) + QLatin1String(" | ") + fixed(second, decimals);
}

QString ratioText(double ratio)
{
    constexpr double small = 0.1;
    if (ratio <= 0.0) return {};
    return fixed(ratio, ratio < small ? 5 : 2);
}

/// 0 if the ratio has no target.
double wishedRatio(const Row& row)
{
    return row.target.of == Target::Ratio ? row.target.wished : 0.0;
}

QString targetText(const Target& target)
{
    if (target.of == Target::Nothing) return {};
    return pair(target.hard, target.wished, target.of == Target::Ratio ? 2 : 0);
}

QStringList cells(const std::vector<Row>& rows, const Row& row)
{
    const Row* const start = startOfGrowth(rows, row);
    return {QString::fromStdString(row.name),
            QString::number(row.steps),
            QString::fromStdString(row.unit),
            fixed(row.ours, 1),
            fixed(row.bare, 1),
            row.spread > 0.0 ? fixed(row.spread * 100.0, 0) + '%' : QString(),
            ratioText(row.ratio),
            targetText(row.target),
            QString::fromStdString(verdict(row)),
            start ? pair(row.ours / start->ours, row.bare / start->bare, 2) : QString()};
}

} // namespace

Row countedRow(const Case& counted, const std::string& unit, double ours, double bare, const Target& target)
{
    return {counted.comparison->name, counted.steps, unit, ours, bare, bare > 0.0 ? ours / bare : 0.0, 0.0, target};
}

std::string verdict(const Row& row)
{
    if (row.target.of == Target::Nothing) return {};
    const bool ofRatio = row.target.of == Target::Ratio;
    const double cost = ofRatio ? row.ratio : row.ours;
    const double rounding = ofRatio ? 0.005 : 0.0;
    if (cost <= row.target.wished + rounding) return "reached";
    return cost <= row.target.hard + rounding ? "ok" : "over";
}

std::string table(const std::vector<Row>& rows)
{
    std::vector<QStringList> lines{
        {"case", "steps", "unit", "ours", "bare", "spread", "ratio", "hard | wished", "verdict", "growth"}};
    for (const Row& row : rows)
        lines.push_back(cells(rows, row));

    const auto isText = [](int column) { return column == 0 || column == 2 || column == 8; };
    QString text;
    for (const QStringList& line : lines) {
        QStringList padded;
        for (int column = 0; column < line.size(); ++column) {
            int width = 0;
            for (const QStringList& other : lines)
                width = std::max(width, static_cast<int>(other[column].size()));
            padded << (isText(column) ? line[column].leftJustified(width) : line[column].rightJustified(width));
        }
        QString joined = padded.join(QLatin1String("  "));
        while (joined.endsWith(' '))
            joined.chop(1);
        text += joined + '\n';
    }
    return text.toStdString();
}

void writeJson(const std::string& file, const std::vector<Row>& rows)
{
    QJsonArray array;
    for (const Row& row : rows) {
        QJsonObject object{{"case", QString::fromStdString(row.name)},
                           {"steps", row.steps},
                           {"unit", QString::fromStdString(row.unit)},
                           {"ours", row.ours},
                           {"bare", row.bare},
                           {"ratio", row.ratio},
                           {"spread", row.spread},
                           {"judged", judgedNames[row.target.of]},
                           {"hard", row.target.hard},
                           {"wished", row.target.wished},
                           {"verdict", QString::fromStdString(verdict(row))}};
        if (const Row* const start = startOfGrowth(rows, row)) {
            object["growth"] = row.ours / start->ours;
            object["bareGrowth"] = row.bare / start->bare;
        }
        array.append(object);
    }
    writeText(file, QJsonDocument(array).toJson());
}

std::vector<Row> readJson(const std::string& file)
{
    QFile in(QString::fromStdString(file));
    const bool opened = in.open(QIODevice::ReadOnly);
    const QJsonDocument document = QJsonDocument::fromJson(opened ? in.readAll() : QByteArray());
    if (!document.isArray()) throw std::runtime_error("cannot read a table from " + file);

    std::vector<Row> rows;
    const QJsonArray array = document.array();
    for (const auto& value : array) {
        const QJsonObject object = value.toObject();
        const auto judged =
            std::find(std::begin(judgedNames), std::end(judgedNames), object["judged"].toString().toStdString());
        if (judged == std::end(judgedNames)) throw std::runtime_error(file + " judges by what no table knows");
        const auto of = static_cast<Target::Of>(judged - std::begin(judgedNames));
        rows.push_back({object["case"].toString().toStdString(), object["steps"].toInt(),
                        object["unit"].toString().toStdString(), object["ours"].toDouble(), object["bare"].toDouble(),
                        object["ratio"].toDouble(), object["spread"].toDouble(),
                        Target(object["hard"].toDouble(), object["wished"].toDouble(), of)});
    }
    return rows;
}

void writePlot(const std::string& file, const std::vector<Row>& rows)
{
    constexpr int lineHeight = 18;
    constexpr int top = 44;
    constexpr int left = 230;
    constexpr int width = 560;
    double highest = 2.0;
    for (const Row& row : rows)
        highest = std::max({highest, row.ratio, wishedRatio(row)});
    const auto x = [&](double ratio) { return QString::number(left + ratio / highest * width, 'f', 1); };
    const int bottom = top + lineHeight * static_cast<int>(rows.size());

    QString svg = QStringLiteral("<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"%1\" height=\"%2\" "
                                 "font-family=\"sans-serif\" font-size=\"12\">\n"
                                 "<rect width=\"100%\" height=\"100%\" fill=\"white\"/>\n"
                                 "<text x=\"8\" y=\"18\">Cost of an operation (%3), ours / a bare QUndoStack&apos;s. "
                                 "Mark: the ratio we want.</text>\n")
                      .arg(left + width + 50)
                      .arg(bottom + 10)
                      .arg(QString::fromStdString(rows.empty() ? std::string() : rows.front().unit));
    for (int ratio = 0; ratio <= static_cast<int>(highest); ++ratio) {
        svg += QStringLiteral("<line x1=\"%1\" x2=\"%1\" y1=\"%2\" y2=\"%3\" stroke=\"#ddd\"/>"
                              "<text x=\"%1\" y=\"%4\" text-anchor=\"middle\">%5</text>\n")
                   .arg(x(ratio))
                   .arg(top)
                   .arg(bottom)
                   .arg(top - 6)
                   .arg(ratio);
    }
    int y = top;
    for (const Row& row : rows) {
        const double wished = wishedRatio(row);
        const bool missed = wished > 0.0 && verdict(row) != "reached";
        svg += QStringLiteral("<text x=\"%1\" y=\"%2\" text-anchor=\"end\">%3</text>"
                              "<rect x=\"%4\" y=\"%5\" width=\"%6\" height=\"12\" fill=\"%7\"/>"
                              "<text x=\"%8\" y=\"%2\" dx=\"4\">%9</text>")
                   .arg(left - 6)
                   .arg(y + 13)
                   .arg(QString::fromStdString(row.name) + '/' + QString::number(row.steps))
                   .arg(left)
                   .arg(y + 3)
                   .arg(row.ratio / highest * width, 0, 'f', 1)
                   .arg(missed ? QStringLiteral("#e6a23c") : QStringLiteral("#5b8db8"))
                   .arg(x(std::max(row.ratio, wished)))
                   .arg(row.ratio, 0, 'f', 2);
        if (wished > 0.0) {
            svg += QStringLiteral("<line x1=\"%1\" x2=\"%1\" y1=\"%2\" y2=\"%3\" stroke=\"black\" stroke-width=\"2\"/>")
                       .arg(x(wished))
                       .arg(y + 1)
                       .arg(y + 17);
        }
        svg += QLatin1Char('\n');
        y += lineHeight;
    }
    writeText(file, (svg + QLatin1String("</svg>\n")).toUtf8());
}

} // namespace bench
