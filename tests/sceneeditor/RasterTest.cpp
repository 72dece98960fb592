#include <sceneeditor/Raster.h>

#include <gtest/gtest.h>

#include <limits>

namespace {

using osg::Vec3f;

const QRgb red = qRgb(255, 0, 0), blue = qRgb(0, 0, 255), black = qRgb(0, 0, 0);

class RasterTest : public testing::Test
{
protected:
    RasterTest() { raster.begin(QSize(100, 80), black); }

    /// A triangle about the middle of the image, and smaller than that.
    void middle(float z, QRgb color, osg::UInt32 id)
    {
        raster.triangle(Vec3f(-0.1f, -0.1f, z), Vec3f(0.1f, -0.1f, z), Vec3f(0.f, 0.1f, z), color, id);
    }

    int painted() const
    {
        int count = 0;
        for (int y = 0; y < 80; ++y)
            for (int x = 0; x < 100; ++x)
                count += raster.itemAt({x, y}) != 0;
        return count;
    }

    Raster raster;
    const QPoint centre{50, 40};
};

TEST_F(RasterTest, ThePixelsOfATriangleHaveItsColourAndItsId)
{
    middle(-1.f, red, 7);
    EXPECT_EQ(raster.image().pixel(centre), red);
    EXPECT_EQ(raster.itemAt(centre), 7U);
    EXPECT_EQ(raster.image().pixel(2, 2), black);
    EXPECT_EQ(raster.itemAt({2, 2}), 0U);
    EXPECT_EQ(raster.itemAt({-1, 200}), 0U);
}

TEST_F(RasterTest, TheNearerTriangleIsSeenWhateverTheOrder)
{
    middle(-1.f, red, 1);
    middle(-2.f, blue, 2);
    EXPECT_EQ(raster.itemAt(centre), 1U);
    middle(-0.5f, blue, 3);
    EXPECT_EQ(raster.itemAt(centre), 3U);
}

TEST_F(RasterTest, BothSidesOfATriangleAreSeen)
{
    raster.triangle(Vec3f(-0.1f, -0.1f, -1.f), Vec3f(0.f, 0.1f, -1.f), Vec3f(0.1f, -0.1f, -1.f), red, 1);
    EXPECT_EQ(raster.itemAt(centre), 1U);
}

TEST_F(RasterTest, WhatLiesBehindTheCameraIsNotSeen)
{
    middle(1.f, red, 1);
    EXPECT_EQ(painted(), 0);
}

TEST_F(RasterTest, ATriangleThatReachesBehindTheCameraIsCut)
{
    // A floor that begins behind the viewer.
    raster.triangle(Vec3f(-9.f, -1.f, 5.f), Vec3f(9.f, -1.f, 5.f), Vec3f(0.f, -1.f, -50.f), red, 1);
    EXPECT_EQ(raster.itemAt({50, 75}), 1U);
    EXPECT_EQ(raster.itemAt({50, 5}), 0U);
}

TEST_F(RasterTest, PointsThatAreNotFiniteMakeATriangleInvisible)
{
    const float infinity = std::numeric_limits<float>::infinity(), none = std::numeric_limits<float>::quiet_NaN();
    for (const float bad : {infinity, -infinity, none}) {
        for (int corner = 0; corner < 3; ++corner) {
            Vec3f points[] = {{-0.1f, -0.1f, -1.f}, {0.1f, -0.1f, -1.f}, {0.f, 0.1f, -1.f}};
            points[corner][1] = bad;
            raster.triangle(points[0], points[1], points[2], red, 1);
        }
    }
    EXPECT_EQ(painted(), 0);
}

TEST_F(RasterTest, EnormousTrianglesFillTheImageAndNoMore)
{
    raster.triangle(Vec3f(-1e30f, -1e30f, -1.f), Vec3f(1e30f, -1e30f, -1.f), Vec3f(0.f, 1e30f, -1.f), red, 1);
    raster.triangle(Vec3f(-1e5f, -1e5f, -1.f), Vec3f(1e5f, -1e5f, -1.f), Vec3f(0.f, 1e5f, -1.f), red, 1);
    EXPECT_EQ(painted(), 8000);
}

TEST_F(RasterTest, AnEmptySizeIsNoHarm)
{
    raster.begin(QSize(), black);
    middle(-1.f, red, 1);
    EXPECT_EQ(raster.image().size(), QSize(1, 1));
}

} // namespace
