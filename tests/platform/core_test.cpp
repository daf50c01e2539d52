#include <ZoGraphics/ZoCore.h>
#include <gtest/gtest.h>
#include <QRegularExpression>
#include <cfloat>
#include <cmath>
#include <limits>
#include <set>
#include <vector>

namespace
{
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();
}

TEST(CoreIds, UuidIsVersion4AndUnique)
{
    const QRegularExpression format(
        QStringLiteral("^[0-9a-f]{8}-[0-9a-f]{4}-4[0-9a-f]{3}-[89ab][0-9a-f]{3}-[0-9a-f]{12}$"));
    std::set<std::string> seen;
    for (int i = 0; i < 1000; ++i)
        ASSERT_TRUE(format.match(QString::fromStdString(*seen.insert(ZoCreateUUID()).first)).hasMatch());
    EXPECT_EQ(seen.size(), 1000u);
}

TEST(CoreMath, IsEqualIsRelativeWithAnAbsoluteFloorAndNaNEqualsNothing)
{
    EXPECT_EQ((std::vector<bool>{IsEqual(0.1 + 0.2, 0.3), IsEqual(1.0e20, 1.0e20 * (1.0 + 1.0e-14)), IsEqual(0.0, 1.0e-13),
                                 IsEqual(kInf, kInf)}),
              std::vector<bool>(4, true));
    EXPECT_EQ((std::vector<bool>{IsEqual(1.0e20, 1.0e20 * (1.0 + 1.0e-10)), IsEqual(0.0, 1.0e-10), IsEqual(kNaN, kNaN),
                                 IsEqual(kInf, -kInf), IsEqual(kInf, DBL_MAX)}),
              std::vector<bool>(5, false));
}

TEST(CoreMath, NormalizeDegreeLandsInZeroTo360)
{
    for (const auto& [in, out] : std::vector<std::pair<double, double>>{{-90.0, 270.0}, {720.0, 0.0}, {-725.0, 355.0}})
        EXPECT_DOUBLE_EQ(NormalizeDegree(in), out) << in;
    EXPECT_FALSE(std::signbit(NormalizeDegree(-0.0)));
    // A remainder too small to survive adding 360 must not yield 360.
    for (const double extreme : {-1.0e-20, 1.0e300})
        EXPECT_TRUE(NormalizeDegree(extreme) >= 0.0 && NormalizeDegree(extreme) < 360.0) << extreme;
    EXPECT_TRUE(std::isnan(NormalizeDegree(kNaN)));
    EXPECT_EQ(NormalizeDegree(-kInf), -kInf);
}
