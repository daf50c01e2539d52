#include <ZoGraphics/SrsToolkit.h>
#include "support/LogCapture.h"
#include <gtest/gtest.h>
#include <cmath>
#include <tuple>
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
    EXPECT_EQ(std::tuple(Srs(4326), wgs84->GetEPSG(), wgs84->GetName(), wgs84->IsGeographic(), Srs(3857)->IsGeographic()),
              std::tuple(wgs84, 4326, std::string("WGS 84"), true, false));
    EXPECT_TRUE(Srs(999999) == nullptr && Srs(-1) == nullptr); // && keeps the log's order
    const std::string prefix = "[CSpatialReferenceFactory::GetOrCreateSRSViaEPSG] 未知的EPSG代码: ";
    EXPECT_EQ(capture.Messages(), (std::vector<std::string>{prefix + "999999", prefix + "-1"}));
}

// Web Mercator metres of Beijing, and back, longitude first; references of
// another factory work alike.
TEST(SrsTransform, GeographicToPseudoMercatorAndBack)
{
    const CVector3D result = RxGDALUtilityNS::TransformGeoSRS_Point({116.4074, 39.9042, 55.0}, Srs(4326), Srs(3857));
    EXPECT_TRUE(std::abs(result.x - 12958412.4926) < 0.01 && std::abs(result.y - 4852030.6348) < 0.01 && result.z == 55.0);
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
