#include "CViewerWindow.h"

#include "AnchoredShapesDemo.h"
#include "ContentDemo.h"
#include "EditingDemo.h"
#include "PointListDemo.h"

#include <ZoGraphics/ZoGraphics.h>
#include <ZoGraphics/ZoMapHost.h>

#include <QLabel>
#include <QLayout>
#include <QMenuBar>
#include <QStatusBar>

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
    // Pictures stretched over the map (the day and night shading at deep
    // zooms, say) are filtered rather than shown in blocks.
    m_view->setRenderHint(QPainter::SmoothPixmapTransform, true);
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

CZoGraphicsModule& CViewerWindow::InitialiseGraphics()
{
    if (!m_graphics)
    {
        m_graphics = std::make_unique<CZoGraphicsModule>();
        m_graphics->Initialise("zomapview", m_mapModule);
    }
    return *m_graphics;
}

int CViewerWindow::PopulateGraphics(const QString& dataDir)
{
    const bool fresh = !m_graphics;
    CZoGraphicsModule& graphics = InitialiseGraphics();
    if (fresh)
    {
        AddAnchoredShapesDemo(graphics, *m_mapModule, this);
        AddPointListDemo(graphics, dataDir);
        AddContentDemo(graphics, dataDir, this);
        AddEditingDemo(graphics, *m_view, this);
        // Its close button hides the bubble: this brings it back.
        if (IZoBubbleMapObject* bubble = graphics.LookupBubbleMapObject("Tokyo"))
        {
            QAction* show = menuBar()->addMenu(tr("&View"))->addAction(tr("Show the &Tokyo bubble"));
            connect(show, &QAction::triggered, this, [bubble] { bubble->SetVisible(true); });
        }
    }
    return AddCapitalDots(graphics, dataDir);
}

void CViewerWindow::ShowSceneEvent(const QString& name, const QVariant& value)
{
    if (!m_graphics || name != QString::fromStdString(ZoGraphicsConstantNS::STR_SCENE_MOUSE_PRESS))
        return;
    // Items record in delivery order, so the topmost object comes first; the
    // edit gadgets' handles (marked by user data role 0) are not the map's.
    for (const QVariant& pressed : value.toList())
    {
        const int id = pressed.toInt();
        IZoGraphicsMapObject* object = m_graphics->LookupGraphicObject(id);
        if (!object || object->GetUserData(0).toBool())
            continue;
        const QString objectName = ConvertStdStringToQString(object->GetName(), ZoGraphicsConstantNS::STR_CODE_PAGE);
        m_selectionLabel->setText(QStringLiteral("%1 %2 (id %3)")
                                      .arg(objectName, object->GetProperty("name_en").toString())
                                      .arg(id));
        return;
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
