#include "support/ModuleFixture.h"

#include <ZoGraphics/ZoGeoJson.h>

#include <QGraphicsItem>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include <condition_variable>
#include <fcntl.h>
#include <mutex>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

using Messages = std::vector<std::string>;
using Rings = std::vector<std::vector<CVector3D>>;
using namespace ZoGeoJsonNS;

namespace
{
const std::string kAt = "[CZoGeoJsonReader::Load] 要素";

std::string DataFile(const char* name)
{
    return std::string(ZO_TEST_DATA_DIR) + "/geojson/" + name;
}

Rings RingsOf(IZoMultiPolygonMapObject* rings)
{
    Rings all;
    for (int i = 0; i < rings->GetPolygonNumber(); ++i)
        all.push_back(rings->GetPolygonData(i));
    return all;
}

QJsonArray Features(const QByteArray& json)
{
    return QJsonDocument::fromJson(json).object().value("features").toArray();
}
} // namespace

class GeoJsonFiles : public ModuleFixture
{
protected:
    void SetUp() override
    {
        ModuleFixture::SetUp();
        layer = module.CreateGraphicsLayer("geojson");
        log.Clear();
    }
    IZoGraphicsMapLayer* layer = nullptr;
};

// A ring that encloses nothing goes alone; the country keeps the rest, and a
// hole stays a hole.
TEST_F(GeoJsonFiles, ADegenerateRingIsDroppedAloneAndTheFeatureKept)
{
    const SZoGeoJsonLoadResult result = LoadGeoJsonFile(&module, layer, DataFile("degenerate_rings.geojson"));
    EXPECT_EQ(result.skipped, 1);
    EXPECT_EQ(log.Messages(), (Messages{kAt + "0多边形1环0已丢弃: 环少于3个点", kAt + "0多边形2环0已丢弃: 环面积为零",
                                        kAt + "1多边形0环0已丢弃: 环面积为零", kAt + "2多边形0环1已丢弃: 环面积为零",
                                        kAt + "3无效: 环面积为零"}));
    ASSERT_EQ(result.objects.size(), 3u);
    auto* italy = dynamic_cast<IZoMultiPolygonMapObject*>(result.objects[0]);
    ASSERT_NE(italy, nullptr);
    EXPECT_EQ(RingsOf(italy), (Rings{{{6, 36, 0}, {19, 36, 0}, {19, 47, 0}, {6, 47, 0}},
                                     {{12, 43.5, 0}, {12, 44, 0}, {12.5, 44, 0}, {12.5, 43.5, 0}},
                                     {{13, 37, 0}, {15, 37, 0}, {15, 38, 0}}}));
    // San Marino is still a hole (the fake map draws 10 px a degree, north up).
    EXPECT_FALSE(italy->GetQtItem()->contains(italy->GetQtItem()->mapFromScene(QPointF(122.5, -437.5))));
    EXPECT_TRUE(italy->GetQtItem()->contains(italy->GetQtItem()->mapFromScene(QPointF(100, -400))));
    // The ring after a flat exterior along the pole stays, and is land.
    EXPECT_EQ(RingsOf(dynamic_cast<IZoMultiPolygonMapObject*>(result.objects[1])),
              (Rings{{{-180, -80, 0}, {180, -80, 0}, {180, -70, 0}}}));
    EXPECT_EQ(dynamic_cast<IZoMultiPolygonMapObject*>(result.objects[2])->GetPolygonNumber(), 1);
    // Written back as two polygons, the first with its hole.
    const QJsonObject geometry = Features(WriteGeoJson({italy})).at(0).toObject().value("geometry").toObject();
    EXPECT_EQ(geometry.value("type").toString(), "MultiPolygon");
    EXPECT_EQ(geometry.value("coordinates").toArray().at(0).toArray().size(), 2);
}

// Positions the map cannot place are refused with their feature or ring,
// never drawn at the origin; the poles and the antimeridian are on the map.
TEST_F(GeoJsonFiles, PositionsOffTheMapAreRefused)
{
    const SZoGeoJsonLoadResult result = LoadGeoJsonFile(&module, layer, DataFile("off_map.geojson"));
    EXPECT_EQ(log.Messages(),
              (Messages{kAt + "0多边形0环0已丢弃: 坐标超出地图范围", kAt + "1无效: 坐标超出地图范围",
                        kAt + "2无效: 坐标超出地图范围", kAt + "3无效: 坐标超出地图范围"}));
    EXPECT_EQ(result.skipped, 3);
    ASSERT_EQ(result.objects.size(), 2u);
    EXPECT_EQ(RingsOf(dynamic_cast<IZoMultiPolygonMapObject*>(result.objects[0])),
              (Rings{{{10, 10, 0}, {12, 10, 0}, {12, 12, 0}}}));
    EXPECT_EQ(result.objects[1]->GetName(), "Antarctica");
}

// What was read comes back: "id", "bbox", a "name" that is no string,
// features without geometry; rings follow the right-hand rule.
TEST_F(GeoJsonFiles, WritingGivesBackWhatWasReadWithRightHandRings)
{
    const SZoGeoJsonLoadResult result = LoadGeoJsonFile(&module, layer, DataFile("round_trip.geojson"));
    EXPECT_EQ(result.skipped, 0);
    EXPECT_TRUE(log.Messages().empty());
    const QByteArray written = WriteGeoJsonLayer(layer);
    const QJsonArray features = Features(written);
    ASSERT_EQ(features.size(), 3);

    const QJsonObject italy = features.at(0).toObject();
    EXPECT_EQ(italy.value("id"), QJsonValue("ITA"));
    EXPECT_EQ(italy.value("bbox"), QJsonValue(QJsonArray{0, 0, 4, 4}));
    EXPECT_EQ(italy.value("properties"), QJsonValue(QJsonObject{{"name", 42}, {"iso", "IT"}}));
    const QJsonArray rings = italy.value("geometry").toObject().value("coordinates").toArray();
    EXPECT_EQ(rings, (QJsonArray{QJsonArray{QJsonArray{0, 0}, QJsonArray{4, 0}, QJsonArray{4, 4}, QJsonArray{0, 4},
                                            QJsonArray{0, 0}},
                                 QJsonArray{QJsonArray{1, 1}, QJsonArray{1, 2}, QJsonArray{2, 2}, QJsonArray{2, 1},
                                            QJsonArray{1, 1}}}));

    const QJsonObject unnamed = features.at(1).toObject();
    EXPECT_EQ(unnamed.value("id"), QJsonValue(7));
    EXPECT_EQ(unnamed.value("properties"), QJsonValue(QJsonObject{{"pop", 3}}));
    EXPECT_FALSE(unnamed.contains("bbox"));

    const QJsonObject nowhere = features.at(2).toObject();
    EXPECT_TRUE(nowhere.value("geometry").isNull());
    EXPECT_EQ(nowhere.value("properties"), QJsonValue(QJsonObject{{"name", "nowhere"}}));
    EXPECT_FALSE(nowhere.contains("id"));

    // Loading what was written and writing it again changes nothing.
    IZoGraphicsMapLayer* again = module.CreateGraphicsLayer("again");
    LoadGeoJson(&module, again, written);
    EXPECT_EQ(WriteGeoJsonLayer(again), written);
}

// Only a plain file of a bounded size is read: a pipe would block the GUI
// thread, a device never end, and a huge file exhaust memory.
TEST_F(GeoJsonFiles, OnlyPlainFilesWithinTheCapAreRead)
{
    QTemporaryDir dir;
    const std::string fifo = dir.filePath("pipe.geojson").toStdString();
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    const std::string huge = dir.filePath("huge.geojson").toStdString();
    QFile sparse(QString::fromStdString(huge));
    ASSERT_TRUE(sparse.open(QIODevice::WriteOnly) && sparse.resize((qint64(256) << 20) + 1)); // no blocks written
    sparse.close();

    // Should the load block on the pipe, a writer that opens and closes it
    // lets it go on, and the test fails instead of hanging.
    std::mutex mutex;
    std::condition_variable finished;
    bool done = false;
    bool unblocked = false;
    std::thread guard([&] {
        std::unique_lock<std::mutex> lock(mutex);
        if (finished.wait_for(lock, std::chrono::seconds(10), [&] { return done; }))
            return;
        unblocked = true;
        const int fd = ::open(fifo.c_str(), O_WRONLY | O_NONBLOCK);
        if (fd >= 0)
            ::close(fd);
    });
    const SZoGeoJsonLoadResult fromPipe = LoadGeoJsonFile(&module, layer, fifo);
    {
        std::lock_guard<std::mutex> lock(mutex);
        done = true;
    }
    finished.notify_one();
    guard.join();
    EXPECT_FALSE(unblocked);

    EXPECT_FALSE(fromPipe.parsed);
    EXPECT_FALSE(LoadGeoJsonFile(&module, layer, "/dev/zero").parsed);
    EXPECT_FALSE(LoadGeoJsonFile(&module, layer, huge).parsed);
    const std::string at = "[CZoGeoJsonReader::LoadFile] ";
    EXPECT_EQ(log.Messages(), (Messages{at + "不是普通文件: " + fifo, at + "不是普通文件: /dev/zero",
                                        at + "文件超过大小上限: " + huge}));
}
