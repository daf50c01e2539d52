#include "content/text/CZoTextMapObject.h"

#include "content/text/ZoTextBlockMetrics.h"
#include "object/ZoLogText.h"
#include "object/ZoPixelValues.h"
#include "platform/core/ZoQtCompat.h"

#include <ZoGraphics/IZoMapModule.h>
#include <ZoGraphics/ZoCoreUtility.h>
#include <ZoGraphics/ZoGraphicsConstant.h>

#include <QTextCursor>
#include <QTextDocument>
#include <QTextFrame>
#include <cmath>

namespace
{
constexpr int kFormatWeight = ZoQtCompat::kHeaviestFontWeight;

QString Decode(const std::string& text)
{
    return ConvertStdStringToQString(text, ZoGraphicsConstantNS::STR_CODE_PAGE);
}

// The shared default font, asked for afresh so that it resolves against the
// running application.
QFont DefaultTextFont()
{
    const QFont& request = ZoGraphicsConstantNS::FONT_DEFAULT_NAME;
    return QFont(request.family(), request.pointSize());
}
} // namespace

CZoTextMapObject::CZoTextMapObject() : m_font(DefaultTextFont()) {}

void CZoTextMapObject::SetPosition(const CVector3D& position)
{
    Core().PrepareGeometryChange();
    m_position = position;
    Core().UpdatePosition();
}

QPointF CZoTextMapObject::ConvertAnchorToPixel()
{
    CTextItemQtImpl* item = GetItem();
    const QPointF current = item ? item->pos() : QPointF();
    IZoMapModule* map = GetMapModule();
    if (!map)
        return current;
    int px = 0;
    int py = 0;
    if (!map->ConvertSceneToPixel(&px, &py, m_position.x, m_position.y))
    {
        ZoLogWarnAt(kLogNames.className, kLogNames.anchorConvertMethod) << ZoLogReason::kConvertFailed;
        return current;
    }
    return QPointF(px, py);
}

void CZoTextMapObject::SetRotateAngle(double degrees)
{
    if (!std::isfinite(degrees))
        return;
    m_angle = NormalizeDegree(degrees);
    if (CTextItemQtImpl* item = GetItem())
    {
        Core().PrepareGeometryChange();
        item->setRotation(m_angle);
    }
}

void CZoTextMapObject::SetRotationVector(const CVector3D& vector)
{
    m_rotationVector = vector;
    SetRotateAngle(vector.z);
}

void CZoTextMapObject::SetText(const std::string& text)
{
    m_text = text;
    m_plainText = true;
    ReloadText();
}

void CZoTextMapObject::SetHtml(const std::string& html)
{
    m_text = html;
    m_plainText = false;
    ReloadText();
}

void CZoTextMapObject::ReloadText()
{
    CTextItemQtImpl* item = GetItem();
    if (!item)
        return;
    Core().PrepareGeometryChange();
    LoadDocument(*item);
    ReapplyFormatsAndRepaint();
}

std::string CZoTextMapObject::GetText() const
{
    if (const CTextItemQtImpl* item = GetItem())
        return ConvertQStringToStdString(item->document()->toPlainText(), ZoGraphicsConstantNS::STR_CODE_PAGE);
    return m_plainText ? m_text : std::string();
}

std::string CZoTextMapObject::GetHtml() const
{
    if (const CTextItemQtImpl* item = GetItem())
        return ConvertQStringToStdString(item->document()->toHtml(), ZoGraphicsConstantNS::STR_CODE_PAGE);
    return m_plainText ? std::string() : m_text;
}

void CZoTextMapObject::SetFont(const QFont& font)
{
    m_font = font;
    ReapplyFormatsAndRepaint();
}

void CZoTextMapObject::SetTextColor(const QColor& color)
{
    m_textColor = color;
    ReapplyFormatsAndRepaint();
}

void CZoTextMapObject::SetOutlineColor(const QColor& color)
{
    m_outlineColor = color;
    ReapplyFormatsAndRepaint();
}

void CZoTextMapObject::SetOutlineWidth(double width)
{
    if (!ZoPlausiblePenWidth(width))
        return;
    m_outlineWidth = width;
    ReapplyFormatsAndRepaint();
}

void CZoTextMapObject::SetPadding(double padding)
{
    if (!ZoPlausiblePixels(padding))
        return;
    m_padding = padding;
    ReapplyFrameFormat();
}

void CZoTextMapObject::SetBackgroundColor(const QColor& color)
{
    m_backgroundColor = color;
    ReapplyFormatsAndRepaint();
}

void CZoTextMapObject::SetBorderWidth(double width)
{
    if (!ZoPlausiblePenWidth(width))
        return;
    m_borderWidth = width;
    ReapplyFrameFormat();
}

void CZoTextMapObject::SetBorderColor(const QColor& color)
{
    m_borderColor = color;
    ReapplyFrameFormat();
}

void CZoTextMapObject::SetScaleWithMap(bool scaleWithMap)
{
    m_scaleWithMap = scaleWithMap;
    if (CTextItemQtImpl* item = GetItem())
    {
        Core().PrepareGeometryChange();
        item->setScale(ItemScale());
    }
}

void CZoTextMapObject::EnableTextInteraction(bool enabled)
{
    CTextItemQtImpl* item = GetItem();
    if (!item)
    {
        ZoLogWarnAt(kLogNames.className, "EnableTextInteraction") << ZoLogReason::kItemMissing;
        return;
    }
    if (!Core().IsInScene() || !Core().IsShown())
    {
        ZoLogWarnAt(kLogNames.className, "EnableTextInteraction") << "未呈现或不可见";
        return;
    }
    if (enabled)
    {
        item->setTextInteractionFlags(Qt::TextEditorInteraction);
        item->setFlag(QGraphicsItem::ItemIsMovable);
        item->setFlag(QGraphicsItem::ItemIsSelectable);
        item->setFlag(QGraphicsItem::ItemIsFocusable);
        item->setFocus(Qt::OtherFocusReason);
        return;
    }
    item->setTextInteractionFlags(Qt::NoTextInteraction);
    item->clearFocus();
    item->setFlag(QGraphicsItem::ItemIsSelectable, false);
    item->setFlag(QGraphicsItem::ItemIsMovable, false);
    item->setFlag(QGraphicsItem::ItemIsFocusable, false);
    QTextCursor cursor = item->textCursor();
    cursor.clearSelection();
    item->setTextCursor(cursor);
}

bool CZoTextMapObject::IsTextInteractionEnabled() const
{
    const CTextItemQtImpl* item = GetItem();
    return item && (item->textInteractionFlags() & Qt::TextEditorInteraction) != 0;
}

void CZoTextMapObject::SetVisible(bool visible)
{
    if (!GetMapModule())
        ZoLogWarnAt(kLogNames.className, "SetVisible") << ZoLogReason::kMapModuleNotSet;
    Core().SetVisible(visible);
}

CAABB CZoTextMapObject::GetBoundingBox() const
{
    // The host's scale for its level is a whole number; anything else measures
    // at scale 1.
    const int factor = GetMapModule() ? ZoPixelInt(GetMapModule()->GetViewScale()) : 1;
    const double scale = factor > 0 ? 1.0 / factor : 1.0;
    return CalculateTextBoundingBox(m_text, m_font, m_position, scale);
}

void CZoTextMapObject::UpdateVisibility(int lod)
{
    Core().UpdateVisibility(lod);
    ReapplyFormatsAndRepaint();
}

void CZoTextMapObject::SetResolution(double scale)
{
    Core().SetResolution(scale);
    CTextItemQtImpl* item = GetItem();
    if (item && m_scaleWithMap)
        item->setScale(Core().PixelScale());
}

void CZoTextMapObject::Rebuild(double scale)
{
    const double held = Core().PixelScale();
    Core().Rebuild(scale);
    // Rebuilding follows the map's scale whatever the scale-with-map switch.
    if (scale > 0.0 && std::isfinite(scale) && Core().PixelScale() != held)
        GetItem()->setScale(Core().PixelScale());
}

void CZoTextMapObject::Dirty()
{
    Core().EnsureItem();
    CTextItemQtImpl* item = GetItem();
    item->setRotation(m_angle);
    item->setScale(ItemScale());
    LoadDocument(*item);
    ApplyCharFormat(*item);
    ApplyFrameFormat(*item);
    // z value, interaction, visibility and position, then the level.
    Core().Dirty();
}

void CZoTextMapObject::Update()
{
    ReapplyFormatsAndRepaint();
}

void CZoTextMapObject::LoadDocument(CTextItemQtImpl& item) const
{
    if (m_plainText)
        item.setPlainText(Decode(m_text));
    else
        item.setHtml(Decode(m_text));
}

void CZoTextMapObject::ApplyCharFormat(CTextItemQtImpl& item) const
{
    const QPen pen = m_outlineWidth == 0.0 ? QPen(Qt::NoPen)
                                           : QPen(QBrush(m_outlineColor), m_outlineWidth, Qt::SolidLine);
    QTextCharFormat format;
    format.setFont(m_font);
    // Map text is always drawn heavy, whatever weight the font asks for.
    format.setProperty(QTextFormat::FontWeight, kFormatWeight);
    format.setTextOutline(pen);
    format.setForeground(QBrush(m_textColor, Qt::SolidPattern));

    QTextCursor cursor = item.textCursor();
    const int position = cursor.position();
    cursor.clearSelection();
    cursor.select(QTextCursor::Document);
    cursor.setCharFormat(format);
    cursor.clearSelection();
    cursor.setPosition(position, QTextCursor::MoveAnchor);
    item.setTextCursor(cursor);
}

void CZoTextMapObject::ApplyFrameFormat(CTextItemQtImpl& item) const
{
    QTextFrame* root = item.document()->rootFrame();
    QTextFrameFormat format = root->frameFormat();
    format.setBackground(QBrush(m_backgroundColor, Qt::SolidPattern));
    format.setBorder(m_borderWidth);
    format.setBorderBrush(QBrush(m_borderColor, Qt::SolidPattern));
    format.setPadding(m_padding);
    format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    format.setMargin(0.0);
    root->setFrameFormat(format);
}

void CZoTextMapObject::TakeDocumentText(const CTextItemQtImpl& item)
{
    const QTextDocument* doc = item.document();
    m_text = ConvertQStringToStdString(m_plainText ? doc->toPlainText() : doc->toHtml(),
                                       ZoGraphicsConstantNS::STR_CODE_PAGE);
}

void CZoTextMapObject::ReapplyFormatsAndRepaint()
{
    CTextItemQtImpl* item = GetItem();
    if (!item)
        return;
    ApplyFrameFormat(*item);
    ApplyCharFormat(*item);
    item->update(item->boundingRect());
}

void CZoTextMapObject::ReapplyFrameFormat()
{
    if (CTextItemQtImpl* item = GetItem())
        ApplyFrameFormat(*item);
}

CAABB CalculateTextBoundingBox(const std::string& text, const QFont& font, const CVector3D& position, double scale)
{
    const QSizeF size = ZoMeasureTextBlock(text, font);
    CAABB box;
    CVector3D corner;
    if (!ZoGeoAtPixelOffset(position, size.width() * scale, size.height() * scale, &corner))
        return box;
    box.Extend(position);
    box.Extend(corner);
    return box;
}
