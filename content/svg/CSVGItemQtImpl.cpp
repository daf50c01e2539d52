#include "content/svg/CSVGItemQtImpl.h"

#include "content/svg/CZoSVGMapObject.h"
#include "object/ZoPictureReader.h"

#include <ZoGraphics/ZoCoreUtility.h>
#include <ZoGraphics/ZoGraphicsConstant.h>

#include <QPainter>

CSVGItemQtImpl::CSVGItemQtImpl(CZoSVGMapObject* owner)
    : TZoGraphicsItem(owner), m_renderer(std::make_unique<QSvgRenderer>())
{
    setSharedRenderer(m_renderer.get());
    // A device cache would allocate the picture's whole size in pixels, which
    // an SVG that declares a huge canvas makes unaffordable.
    setCacheMode(QGraphicsItem::NoCache);
}

bool CSVGItemQtImpl::Load(const QString& path, const char* method)
{
    QByteArray xml;
    if (!ZoReadSvgDocument(path, SZoLogSite{"CZoSVGMapObject", method}, &xml))
        return false;
    auto renderer = std::make_unique<QSvgRenderer>();
    if (!renderer->load(xml))
        return false;
    prepareGeometryChange();
    setSharedRenderer(renderer.get());
    m_renderer = std::move(renderer);
    return true;
}

void CSVGItemQtImpl::PaintOnCanvas(QPainter* painter, int)
{
    // A temporary item has no picture yet: it reads the object's file.
    if (m_owner->GetQtItem() != this && !m_owner->GetSVGFile().empty())
        Load(ConvertStdStringToQString(m_owner->GetSVGFile(), ZoGraphicsConstantNS::STR_CODE_PAGE), "PaintOnCanvas");
    const QSizeF size = boundingRect().size();
    if (size.isEmpty() || !m_renderer->isValid())
        return;
    painter->save();
    // As on the scene: turned about the picture's centre, then scaled.
    painter->scale(transform().m11(), transform().m22());
    painter->rotate(m_owner->GetRotation());
    m_renderer->render(painter, QRectF(QPointF(-size.width() * 0.5, -size.height() * 0.5), size));
    painter->restore();
}
