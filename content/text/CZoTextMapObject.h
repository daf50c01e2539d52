#pragma once

#include "content/text/CTextItemQtImpl.h"
#include "object/TZoMapObjectBase.h"

#include <ZoGraphics/IZoTextMapObject.h>

#include <QColor>
#include <QFont>

// Plain or HTML text whose top-left corner stands on a geographic point. The
// document lives in the Qt item; typed edits flow back into the stored text.
class CZoTextMapObject final : public TZoMapObjectBase<IZoTextMapObject, CZoTextMapObject, CTextItemQtImpl>
{
public:
    static constexpr SZoObjectLogNames kLogNames{"CZoTextMapObject", nullptr, "SetMaxLodLevel", "UpdatePixelPosition"};

    CZoTextMapObject();

    void SetPosition(const CVector3D& position) override;
    CVector3D GetPosition() const override { return m_position; }
    void SetRotateAngle(double degrees) override;
    double GetRotateAngle() const override { return m_angle; }
    void SetRotationVector(const CVector3D& vector) override;
    CVector3D GetRotationVector() const override { return m_rotationVector; }
    void SetText(const std::string& text) override;
    std::string GetText() const override;
    void SetHtml(const std::string& html) override;
    std::string GetHtml() const override;
    void SetFont(const QFont& font) override;
    QFont GetFont() const override { return m_font; }
    void SetTextColor(const QColor& color) override;
    QColor GetTextColor() const override { return m_textColor; }
    void SetOutlineColor(const QColor& color) override;
    QColor GetOutlineColor() const override { return m_outlineColor; }
    void SetOutlineWidth(double width) override;
    double GetOutlineWidth() const override { return m_outlineWidth; }
    void SetPadding(double padding) override;
    double GetPadding() const override { return m_padding; }
    void SetBackgroundColor(const QColor& color) override;
    QColor GetBackgroundColor() const override { return m_backgroundColor; }
    void SetBorderWidth(double width) override;
    double GetBorderWidth() const override { return m_borderWidth; }
    void SetBorderColor(const QColor& color) override;
    QColor GetBorderColor() const override { return m_borderColor; }
    void SetScaleWithMap(bool scaleWithMap) override;
    bool IsScaleWithMap() const override { return m_scaleWithMap; }
    void EnableTextInteraction(bool enabled) override;
    bool IsTextInteractionEnabled() const override;

    // Base operations whose text behaviour differs.
    void SetVisible(bool visible) override;
    CAABB GetBoundingBox() const override;
    void UpdateVisibility(int lod) override;
    void SetResolution(double scale) override;
    void Rebuild(double scale) override;
    void Dirty() override;
    void Update() override;

    CVector3D GetAnchor() const { return m_position; }
    // A failed conversion leaves the item where it was.
    QPointF ConvertAnchorToPixel();

    // For the item: loads the stored text into a document item and formats
    // it as this object says (also used for temporary canvas items).
    void LoadDocument(CTextItemQtImpl& item) const;
    void ApplyCharFormat(CTextItemQtImpl& item) const;
    void ApplyFrameFormat(CTextItemQtImpl& item) const;
    // Typed edits: the document's content becomes the stored text.
    void TakeDocumentText(const CTextItemQtImpl& item);

private:
    // Reload the document and the formats after the text or its mode changed.
    void ReloadText();
    void ReapplyFormatsAndRepaint();
    void ReapplyFrameFormat();
    double ItemScale() const { return m_scaleWithMap ? Core().PixelScale() : 1.0; }

    CVector3D m_position;
    CVector3D m_rotationVector;
    bool m_plainText = true;
    double m_outlineWidth = 1.0;
    double m_padding = 0.0;
    double m_borderWidth = 0.0;
    QColor m_textColor = QColor(Qt::red);
    QColor m_borderColor = QColor(0, 0, 0, 0);
    QColor m_outlineColor = QColor(Qt::black);
    QColor m_backgroundColor = QColor(0, 0, 0, 0);
    QFont m_font;
    std::string m_text;
    double m_angle = 0.0;
    bool m_scaleWithMap = true;
};
