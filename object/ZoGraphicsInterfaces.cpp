// Out-of-line destructors: they anchor each interface's vtable and type
// information in this library, so dynamic casts agree across libraries.
#include <ZoGraphics/IObject.h>
#include <ZoGraphics/IZoDotMapObject.h>
#include <ZoGraphics/IZoGraphicsMapLayer.h>
#include <ZoGraphics/IZoGraphicsModule.h>
#include <ZoGraphics/IZoLabelDeclutter.h>
#include <ZoGraphics/IZoLineStyleGraphicsMapObject.h>
#include <ZoGraphics/IZoMapEventHandler.h>
#include <ZoGraphics/IZoMapModule.h>
#include <ZoGraphics/IZoMapView.h>

IObject::~IObject() = default;
IZoMapLayer::~IZoMapLayer() = default;
int IZoMapLayer::ReservedLayerSlot17() const { return 0; }
int IZoMapLayer::ReservedLayerSlot18() const { return 0; }
IZoImageMapLayer::~IZoImageMapLayer() = default;
IZoGraphicsMapLayer::~IZoGraphicsMapLayer() = default;
IZoLabelDeclutter::~IZoLabelDeclutter() = default;
IZoLabelDeclutter2::~IZoLabelDeclutter2() = default;
void IZoGraphicsMapLayer::ReservedLayerSlot39() {}
IZoMapObject::~IZoMapObject() = default;
IZoGraphicsMapObject::~IZoGraphicsMapObject() = default;
IZoSurfaceStyleGraphicsMapObject::~IZoSurfaceStyleGraphicsMapObject() = default;
IZoLineStyleGraphicsMapObject::~IZoLineStyleGraphicsMapObject() = default;
IZoDotMapObject::~IZoDotMapObject() = default;
IZoGraphicsModule::~IZoGraphicsModule() = default;
IZoMapModule::~IZoMapModule() = default;
IZoMapEventHandler::~IZoMapEventHandler() = default;
IZoMapView::~IZoMapView() = default;
