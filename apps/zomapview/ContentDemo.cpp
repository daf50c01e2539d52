#include "ContentDemo.h"

#include "DemoSupport.h"

#include <ZoGraphics/ZoGraphics.h>
#include <ZoGraphics/ZoMapHost.h>

#include <QDateTime>
#include <QFormLayout>
#include <QGraphicsItem>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cmath>
#include <condition_variable>
#include <mutex>
#include <thread>

namespace
{
// Web Mercator reaches this latitude at the top and bottom of the world.
constexpr double kMercatorLimit = 85.0511287798;
constexpr double kPi = 3.14159265358979323846;
constexpr double kDegree = kPi / 180.0;
constexpr auto kShadingPeriod = std::chrono::seconds(5);

// Capitals of Europe (by the name in capitals.csv).
const char* const kEuropeanCapitals[] = {
    "London", "Paris",    "Berlin",     "Rome",      "Madrid", "Moscow", "Athens",   "Vienna",   "Warsaw",
    "Stockholm", "Oslo", "Helsinki", "Copenhagen", "Amsterdam", "Brussels", "Bern", "Lisbon", "Dublin",
    "Kyiv",   "Budapest", "Prague",  "Reykjavik",
};
} // namespace

void AddCapitalPins(CZoGraphicsModule& graphics, const QString& dataDir)
{
    const std::vector<SCapital> capitals = ReadCapitals(dataDir);
    if (capitals.empty())
        return;
    IZoGraphicsMapLayer* layer = graphics.CreateGraphicsLayer("European capitals");
    if (!layer)
        return;
    layer->SetMinLodLevel(3);
    // At level 3 the names of Brussels, Amsterdam and their neighbours would overlap.
    if (auto* declutter = dynamic_cast<IZoLabelDeclutter*>(layer))
        declutter->SetLabelDeclutter(true);
    const std::string icon = ToGB18030(dataDir + QStringLiteral("/demo/pin.png"));
    for (const SCapital& capital : capitals)
    {
        if (std::find(std::begin(kEuropeanCapitals), std::end(kEuropeanCapitals), capital.nameEn) ==
            std::end(kEuropeanCapitals))
            continue;
        IZoMarkPointMapObject* pin = graphics.CreateMarkPointMapObject(ToGB18030(capital.nameZh), layer);
        if (!pin)
            continue;
        pin->SetPosition(CVector3D(capital.lon, capital.lat, 0.0));
        pin->SetIconFile(icon);
        pin->SetIconAnchor(CVector3D(12.0, 34.0, 0.0)); // the tip of the pin
        pin->SetNameFont(QFont(QStringLiteral("WenQuanYi Micro Hei"), 10, QFont::Bold));
        pin->SetNameColor(QColor(120, 20, 20));
        pin->SetNameOutlineColor(Qt::white);
        pin->SetNameOffset(2.0f);
        pin->SetNameVisible(true);
        pin->SetLabelPosition(E_LABEL_TOP); // above the pin: the capital's dot names itself on the right
        pin->SetLabelAlignment(E_LABEL_ALIGN_MIDDLE);
        pin->SetInteractive(true);
    }
}

// The text turns editable on a double click and back on the next one.
void AddEditableText(CZoGraphicsModule& graphics, QWidget* window)
{
    IZoGraphicsMapLayer* layer = graphics.CreateGraphicsLayer("Notes");
    IZoTextMapObject* text = graphics.CreateTextMapObject("note", layer);
    if (!text)
        return;
    text->SetPosition(CVector3D(-62.0, 45.0, 0.0));
    text->SetFont(QFont(QStringLiteral("WenQuanYi Micro Hei"), 13));
    text->SetTextColor(QColor(20, 60, 140));
    text->SetOutlineWidth(0.0);
    text->SetBackgroundColor(QColor(255, 255, 240, 230));
    text->SetBorderColor(QColor(20, 60, 140));
    text->SetBorderWidth(1.0);
    text->SetPadding(4.0);
    text->SetScaleWithMap(false);
    text->SetText(ToGB18030(QString::fromUtf8("双击编辑这段文字\nDouble-click to edit")));
    text->SetInteractive(true);

    auto* view = window->findChild<CZoMapView*>();
    if (!view)
        return;
    const int id = text->GetObjectID();
    QObject::connect(view, &CZoMapView::sceneEvent, window, [text, id](const QString& name, const QVariant& value) {
        if (name == QString::fromStdString(ZoGraphicsConstantNS::STR_SCENE_MOUSE_DOUBLE_CLICKED) &&
            value.toList().contains(QVariant(id)))
            text->EnableTextInteraction(!text->IsTextInteractionEnabled());
    });
}

void AddCompassRose(CZoGraphicsModule& graphics, const QString& dataDir)
{
    IZoGraphicsMapLayer* layer = graphics.CreateGraphicsLayer("Compass");
    IZoSVGMapObject* rose = graphics.CreateSVGMapObject("compass rose", layer);
    if (!rose)
        return;
    rose->LoadSVGFile(ToGB18030(dataDir + QStringLiteral("/demo/compass_rose.svg")), CVector3D(-32.0, 52.0, 0.0));
    rose->SetGeoExtent(EXTENT{-40.0, 46.0, -24.0, 57.0});
    rose->Rotate(-12.0);
}

// A small form over the Atlantic. The form is the window's to delete.
void AddForm(CZoGraphicsModule& graphics, QWidget* window)
{
    IZoGraphicsMapLayer* layer = graphics.CreateGraphicsLayer("Forms");
    IZoWidgetMapObject* object = graphics.CreateWidgetMapObject("form", layer);
    if (!object)
        return;
    auto* form = new QWidget;
    form->setObjectName(QStringLiteral("contentDemoForm"));
    form->setStyleSheet(QStringLiteral("#contentDemoForm{background: rgba(255,255,255,230); border: 1px solid "
                                       "rgb(83,130,224); border-radius: 4px;} QPushButton{%1}")
                            .arg(QString::fromStdString(ZoGraphicsConstantNS::STR_BUTTON_STYLE)));
    form->setAttribute(Qt::WA_StyledBackground);
    auto* layout = new QFormLayout(form);
    auto* name = new QLineEdit(QString::fromUtf8("大西洋"));
    auto* note = new QLabel(QString::fromUtf8("标记一个地点"));
    auto* button = new QPushButton(QString::fromUtf8("保存"));
    layout->addRow(QString::fromUtf8("名称"), name);
    layout->addRow(note);
    layout->addRow(button);
    QObject::connect(button, &QPushButton::clicked, note,
                     [note, name] { note->setText(QString::fromUtf8("已保存: ") + name->text()); });
    form->resize(180, 96);
    object->SetWidget(form);
    object->SetAnchor(CVector3D(0.0, 96.0, 0.0)); // bottom-left corner on the point
    object->SetPosition(CVector3D(-42.0, 21.0, 0.0));
    object->SetInteractive(true);
    QPointer<QWidget> owned(form);
    QObject::connect(window, &QObject::destroyed, [owned] { delete owned.data(); });
}

namespace
{
// Night over the map at time t: a dark veil that deepens through twilight
// (the sun 0 to 12 degrees below the horizon). Rows follow Web Mercator, so
// the image lies right when stretched over the map's extent.
QImage DayNightImage(const QDateTime& t, int size)
{
    const QDateTime utc = t.toUTC();
    const double day = utc.date().dayOfYear();
    const double hours = utc.time().msecsSinceStartOfDay() / 3600000.0;
    const double declination = -23.44 * kDegree * std::cos(2.0 * kPi / 365.0 * (day + 10.0));
    const double sunLongitude = -15.0 * (hours - 12.0) * kDegree;
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < size; ++y)
    {
        const double mercator = kPi * (1.0 - 2.0 * (y + 0.5) / size);
        const double lat = std::atan(std::sinh(mercator));
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < size; ++x)
        {
            const double lon = (-180.0 + 360.0 * (x + 0.5) / size) * kDegree;
            const double elevation = std::asin(std::sin(lat) * std::sin(declination) +
                                               std::cos(lat) * std::cos(declination) * std::cos(lon - sunLongitude));
            const double depth = std::clamp(-elevation / (12.0 * kDegree), 0.0, 1.0);
            const int alpha = static_cast<int>(150.0 * depth);
            line[x] = qPremultiply(qRgba(8, 16, 48, alpha));
        }
    }
    return image;
}

// Recomputes the shading on a worker thread and hands each picture to the
// canvas from there. It lives as an empty child of the canvas's item, so
// that it stops (and waits for its thread) before the canvas can go.
class CDayNightFeeder final : public QGraphicsItem
{
public:
    CDayNightFeeder(IZoLayerCanvasMapObject* canvas, QGraphicsItem* parent)
        : QGraphicsItem(parent), m_canvas(canvas), m_worker([this] { Run(); })
    {
        setFlag(QGraphicsItem::ItemHasNoContents);
    }
    ~CDayNightFeeder() override
    {
        {
            std::lock_guard<std::mutex> lock(m_mutex);
            m_stop = true;
        }
        m_wake.notify_all();
        m_worker.join();
    }
    Q_DISABLE_COPY(CDayNightFeeder)

    QRectF boundingRect() const override { return QRectF(); }
    void paint(QPainter*, const QStyleOptionGraphicsItem*, QWidget*) override {}

private:
    void Run()
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        while (!m_wake.wait_for(lock, kShadingPeriod, [this] { return m_stop; }))
        {
            lock.unlock();
            m_canvas->SetImage(DayNightImage(QDateTime::currentDateTimeUtc(), 512));
            lock.lock();
        }
    }

    IZoLayerCanvasMapObject* m_canvas;
    std::mutex m_mutex;
    std::condition_variable m_wake;
    bool m_stop = false;
    std::thread m_worker;
};

} // namespace

IZoLayerCanvasMapObject* AddDayNightCanvas(CZoGraphicsModule& graphics, const QDateTime& time)
{
    IZoGraphicsMapLayer* layer = graphics.CreateGraphicsLayer("Day and night");
    IZoLayerCanvasMapObject* canvas = graphics.CreateLayerCanvasMapObject("day and night", layer);
    if (!canvas)
        return nullptr;
    canvas->SetZValue(-1000);
    canvas->SetExtent(EXTENT{-180.0, -kMercatorLimit, 180.0, kMercatorLimit});
    canvas->SetImage(DayNightImage(time, 512));
    return canvas;
}

void AddContentDemo(CZoGraphicsModule& graphics, const QString& dataDir, QWidget* window)
{
    // The first picture at once, so that even a single rendered frame shows it.
    IZoLayerCanvasMapObject* canvas = AddDayNightCanvas(graphics, QDateTime::currentDateTimeUtc());
    if (canvas && canvas->GetQtItem())
        new CDayNightFeeder(canvas, canvas->GetQtItem()); // owned by the item
    AddCapitalPins(graphics, dataDir);
    AddCompassRose(graphics, dataDir);
    AddEditableText(graphics, window);
    AddForm(graphics, window);
}
