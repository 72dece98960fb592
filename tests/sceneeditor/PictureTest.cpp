#include "EditorTest.h"

#include <QtCore/QFile>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDockWidget>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QStatusBar>
#include <QtWidgets/QTabBar>

#include <set>

namespace {

class PictureTest : public EditorTest
{
protected:
    void runTour()
    {
        QFile tour(TOUR_STEPS);
        ASSERT_TRUE(tour.open(QIODevice::ReadOnly));
        StepScript(session(), *window).run(QString::fromUtf8(tour.readAll()));
    }
    static std::size_t colorsIn(const QImage& image)
    {
        std::set<QRgb> colors;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                colors.insert(image.pixel(x, y));
        return colors.size();
    }
    QRect placeOf(const QWidget& widget) { return {widget.mapTo(window.get(), QPoint()), widget.size()}; }
};

TEST_F(PictureTest, TheTourLeavesTheHistoryThatThePictureShows)
{
    runTour();
    QStringList texts;
    std::vector<int> children;
    for (int i = 0; i < stack.size(); ++i) {
        texts.append(stack.command(i)->text());
        children.push_back(stack.command(i)->childCount());
    }
    EXPECT_EQ(texts, (QStringList{"Translate 'Desk Lamp'", "Rotate 'Gehäuse'", "Add Tag 'spare part'", "Move 2 Nodes",
                                  "Move 2 Nodes"}));
    EXPECT_EQ(children, (std::vector<int>{0, 0, 4, 2, 2}));
    EXPECT_EQ(stack.index(), 4);
    EXPECT_GT(second.size(), 1);
}

TEST_F(PictureTest, EachPartOfTheWindowIsSeenAndNoneCoversAnother)
{
    runTour();
    std::vector<QWidget*> parts{&window->viewport(), window->menuBar(), window->statusBar()};
    for (QDockWidget* const dock : window->findChildren<QDockWidget*>())
        if (!dock->visibleRegion().isEmpty()) parts.push_back(dock);
    EXPECT_GE(parts.size(), 6U);
    const QImage picture = window->grab().toImage();
    EXPECT_EQ(picture.size(), window->size() * window->devicePixelRatioF());
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const QRect place = placeOf(*parts[i]);
        EXPECT_TRUE(window->rect().contains(place)) << parts[i]->objectName().toStdString();
        EXPECT_GT(colorsIn(picture.copy(place)), 3U) << parts[i]->objectName().toStdString() << " is blank";
        for (std::size_t other = 0; other < i; ++other)
            EXPECT_FALSE(place.intersects(placeOf(*parts[other])))
                << parts[i]->objectName().toStdString() << " and " << parts[other]->objectName().toStdString();
    }
    EXPECT_GT(colorsIn(picture.copy(placeOf(window->viewport()))), 20U);
    EXPECT_GE(window->viewport().width() * 2, window->width()) << "docks leave too little room";
}

TEST_F(PictureTest, DocksFollowADarkPalette)
{
    const QPalette before = QApplication::palette();
    QPalette dark(QColor(40, 40, 40));
    QApplication::setPalette(dark);
    runTour();
    const QImage picture = window->grab().toImage();
    for (QDockWidget* const dock : window->findChildren<QDockWidget*>()) {
        if (dock->visibleRegion().isEmpty()) continue;
        const QImage part = picture.copy(placeOf(*dock)).convertToFormat(QImage::Format_Grayscale8);
        int bright = 0;
        for (int y = 0; y < part.height(); ++y)
            for (int x = 0; x < part.width(); ++x)
                bright += qGray(part.pixel(x, y)) > 160;
        EXPECT_LT(bright * 5, part.width() * part.height()) << dock->objectName().toStdString();
    }
    QApplication::setPalette(before);
}

} // namespace
