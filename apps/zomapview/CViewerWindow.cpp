#include "CViewerWindow.h"

#include "AnchoredShapesDemo.h"
#include "ContentDemo.h"
#include "EditingDemo.h"
#include "PointListDemo.h"

#include <ZoGraphics/ZoGraphics.h>
#include <ZoGraphics/ZoMapHost.h>

#include <QFile>
#include <QLabel>
#include <QLayout>
#include <QStatusBar>
#include <QTextStream>

namespace
{
// Capitals show from this level on, their names from the next; further out
// they would only clutter the world view.
constexpr int kCapitalsMinLevel = 2;
constexpr int kCapitalNamesMinLevel = 3;

std::string ToGB18030(const QString& text)
{
    return ConvertQStringToStdString(text, ZoGraphicsConstantNS::STR_CODE_PAGE);
}
} // namespace

CViewerWindow::CViewerWindow(QWidget* parent)
    : QMainWindow(parent),
      m_mapModule(new CZoMapModule(this)),
      m_view(new CZoMapView(m_mapModule, this)),
      m_pointerLabel(new QLabel(this)),
      m_zoomLabel(new QLabel(this)),
      m_selectionLabel(new QLabel(this))
{
    setWindowTitle(QStringLiteral("ZoGraphics map viewer"));
    setCentralWidget(m_view);
    statusBar()->addWidget(m_pointerLabel, 1);
    statusBar()->addPermanentWidget(m_selectionLabel);
    statusBar()->addPermanentWidget(m_zoomLabel);
    connect(m_view, &CZoMapView::pointerGeoChanged, this, &CViewerWindow::ShowPointer);
    connect(m_view, &CZoMapView::sceneEvent, this, &CViewerWindow::ShowSceneEvent);
    connect(m_mapModule, &CZoMapModule::zoomChanged, this, &CViewerWindow::ShowZoom);
    ShowPointer(false, 0.0, 0.0);
    ShowZoom(m_mapModule->GetZoom());
    resize(1024, 700);
}

CViewerWindow::~CViewerWindow()
{
    // The graphics objects live in the map module's scene: tear them down
    // while the map module is still there.
    if (m_graphics)
        m_graphics->Unintialise();
}

void CViewerWindow::ShowArea(double lon, double lat, double zoom)
{
    m_mapModule->SetZoomAround(zoom, lon, lat);
}

QImage CViewerWindow::RenderMap(const QSize& size)
{
    // The status bar takes its share of the window: size the window so that
    // the map gets exactly the size asked for.
    layout()->activate();
    resize(size + (this->size() - m_view->size()));
    layout()->activate();
    return m_view->grab().toImage();
}

int CViewerWindow::PopulateGraphics(const QString& dataDir)
{
    if (!m_graphics)
    {
        m_graphics = std::make_unique<CZoGraphicsModule>();
        m_graphics->Initialise("zomapview", m_mapModule);
        AddAnchoredShapesDemo(*m_graphics, *m_mapModule, this);
        AddPointListDemo(*m_graphics, dataDir);
        AddContentDemo(*m_graphics, dataDir, this);
        AddEditingDemo(*m_graphics, *m_view, this);
    }
    QFile file(dataDir + QStringLiteral("/capitals.csv"));
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return 0;

    IZoGraphicsMapLayer* layer = m_graphics->CreateGraphicsLayer("Capitals");
    if (!layer)
        return 0;
    layer->SetMinLodLevel(kCapitalsMinLevel);
    layer->SetNameMinLodLevel(kCapitalNamesMinLevel);
    // Neighbouring capitals (Vienna and Bratislava, say) would print their
    // names over each other: only the first of them is drawn.
    if (auto* declutter = dynamic_cast<IZoLabelDeclutter*>(layer))
        declutter->SetLabelDeclutter(true);

    QTextStream in(&file);
    in.setCodec("UTF-8");
    in.readLine(); // name_en,name_zh,country,lon,lat
    int count = 0;
    while (!in.atEnd())
    {
        const QStringList fields = in.readLine().split(QLatin1Char(','));
        bool lonOk = false;
        bool latOk = false;
        const double lon = fields.value(3).toDouble(&lonOk);
        const double lat = fields.value(4).toDouble(&latOk);
        if (fields.size() != 5 || !lonOk || !latOk)
            continue;
        IZoDotMapObject* dot = m_graphics->CreateDotMapObject(ToGB18030(fields.at(1)), layer);
        if (!dot)
            continue;
        dot->SetProperty("name_en", fields.at(0));
        dot->SetPosition(CVector3D(lon, lat, 0.0));
        dot->SetRadius(5.0);
        dot->SetPenWidth(1.5f);
        dot->SetPenColor(QColor(120, 30, 20));
        dot->SetBrushColor(QColor(230, 90, 40, 220));
        dot->SetLabelPosition(3);
        dot->SetNameOffset(3.0f);
        dot->SetNameColor(QColor(90, 20, 10));
        dot->SetNameOutlineColor(Qt::white);
        dot->SetNameVisible(true);
        dot->SetInteractive(true);
        ++count;
    }
    return count;
}

void CViewerWindow::ShowSceneEvent(const QString& name, const QVariant& value)
{
    if (!m_graphics || name != QString::fromStdString(ZoGraphicsConstantNS::STR_SCENE_MOUSE_PRESS))
        return;
    const QVariantList ids = value.toList();
    if (ids.isEmpty())
        return;
    // Items record in delivery order, so the topmost object comes first.
    const int id = ids.first().toInt();
    if (IZoGraphicsMapObject* object = m_graphics->LookupGraphicObject(id))
    {
        const QString objectName = ConvertStdStringToQString(object->GetName(), ZoGraphicsConstantNS::STR_CODE_PAGE);
        m_selectionLabel->setText(QStringLiteral("%1 %2 (id %3)")
                                      .arg(objectName, object->GetProperty("name_en").toString())
                                      .arg(id));
    }
}

void CViewerWindow::ShowPointer(bool valid, double lon, double lat)
{
    m_pointerLabel->setText(valid ? QStringLiteral("Lon %1°  Lat %2°").arg(lon, 0, 'f', 5).arg(lat, 0, 'f', 5)
                                  : QStringLiteral("Pointer off the map"));
}

void CViewerWindow::ShowZoom(double zoom)
{
    m_zoomLabel->setText(QStringLiteral("Zoom %1 (level %2, scale %3)")
                             .arg(zoom, 0, 'f', 2)
                             .arg(m_mapModule->GetCurrentLodLevel())
                             .arg(m_mapModule->GetViewScale(), 0, 'f', 3));
}
