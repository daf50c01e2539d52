#include <ZoGraphics/SrsToolkit.h>
#include "support/LogCapture.h"
#include <gtest/gtest.h>
#include <cmath>
#include <limits>
#include <vector>

namespace
{
CSpatialReference* Srs(int code) { return CSpatialReferenceFactorySingleton::Instance()->GetOrCreateSRSViaEPSG(code); }
}

TEST(SrsFactory, CreatesOncePerCodeAndUnknownCodesGiveNull)
{
    LogCapture capture;
    CSpatialReference* wgs84 = Srs(4326);
    ASSERT_NE(wgs84, nullptr);
    EXPECT_EQ(Srs(4326), wgs84);
    EXPECT_EQ(wgs84->GetEPSG(), 4326);
    EXPECT_EQ(wgs84->GetName(), "WGS 84");
    EXPECT_TRUE(wgs84->IsGeographic());
    EXPECT_FALSE(Srs(3857)->IsGeographic());
    EXPECT_EQ(Srs(999999), nullptr);
    EXPECT_EQ(Srs(-1), nullptr);
    const std::string prefix = "[CSpatialReferenceFactory::GetOrCreateSRSViaEPSG] 未知的EPSG代码: ";
    EXPECT_EQ(capture.Messages(), (std::vector<std::string>{prefix + "999999", prefix + "-1"}));
}

// Web Mercator metres of Beijing, and back, longitude first; references of
// another factory work alike.
TEST(SrsTransform, GeographicToPseudoMercatorAndBack)
{
    const CVector3D result = RxGDALUtilityNS::TransformGeoSRS_Point({116.4074, 39.9042, 55.0}, Srs(4326), Srs(3857));
    EXPECT_NEAR(result.x, 12958412.4926, 0.01);
    EXPECT_NEAR(result.y, 4852030.6348, 0.01);
    EXPECT_EQ(result.z, 55.0);
    const CVector3D back = RxGDALUtilityNS::TransformGeoSRS_Point(result, Srs(3857), Srs(4326));
    EXPECT_TRUE(std::abs(back.x - 116.4074) < 1e-9 && std::abs(back.y - 39.9042) < 1e-9);
    CSpatialReferenceFactory own;
    CSpatialReference* from = own.GetOrCreateSRSViaEPSG(4326);
    ASSERT_NE(from, Srs(4326));
    const CVector3D again = RxGDALUtilityNS::TransformGeoSRS_Point(back, from, own.GetOrCreateSRSViaEPSG(3857));
    EXPECT_NEAR(again.x, result.x, 1e-6);
    CVector3D unknown;
    LogCapture quiet;
    EXPECT_FALSE(own.TransformPoint({0.0, 0.0, 0.0}, 4326, 999999, &unknown));
}
