#pragma once

#include "content/markpoint/CMarkPointItemQtImpl.h"
#include "object/TZoMapObjectBase.h"

#include <ZoGraphics/IZoMarkPointMapObject.h>

#include <QImage>
#include <QPixmap>

// A map pin: an icon whose anchor pixel stands on a geographic point, with the
// name label on one side of the icon.
class CZoMarkPointMapObject final
    : public TZoMapObjectBase<IZoMarkPointMapObject, CZoMarkPointMapObject, CMarkPointItemQtImpl>
{
public:
    // Both level setters name SetMinLodLevel; hosts match on these texts.
    static constexpr SZoObjectLogNames kLogNames{"CZoMarkPointMapObject", nullptr, "SetMinLodLevel",
                                                 "UpdatePixelCenterPos"};

    CZoMarkPointMapObject() = default;

    void SetPosition(const CVector3D& position) override;
    CVector3D GetPosition() const override { return m_position; }
    void SetRotateAngle(double degrees) override;
    double GetRotateAngle() const override { return m_angle; }
    void SetIconSize(double width, double height) override;
    double GetIconWidth() const override { return m_iconWidth; }
    double GetIconHeight() const override { return m_iconHeight; }
    void SetIconAnchor(const CVector3D& anchor) override;
    CVector3D GetIconAnchor() const override { return m_iconAnchor; }
    void SetIconFile(const std::string& path) override;
    void SetIcon(const QPixmap& icon) override;
    QPixmap GetIcon() const override { return m_icon; }
    std::string GetIconFile() const override { return m_iconFile; }
    void SetIconVisible(bool visible) override;
    bool IsIconVisible() const override { return m_iconVisible; }
    void SetLabelPosition(unsigned int position) override;
    unsigned int GetLabelPosition() const override { return m_labelPosition; }
    void SetLabelAlignment(unsigned int alignment) override;
    unsigned int GetLabelAlignment() const override { return m_labelAlignment; }

    CVector3D GetAnchor() const { return m_position; }
    QPointF ConvertAnchorToPixel();

    // The icon as the item draws it, converted once when it is set.
    const QImage& IconImage() const { return m_iconImage; }

private:
    // Geometry change, then icon rectangle and label laid out again, repaint.
    void RelayoutIcon();

    bool m_iconVisible = true;
    double m_angle = 0.0;
    double m_iconWidth = 0.0;
    double m_iconHeight = 0.0;
    CVector3D m_position;
    CVector3D m_iconAnchor;
    unsigned int m_labelPosition = E_LABEL_TOP;
    unsigned int m_labelAlignment = E_LABEL_ALIGN_MIDDLE;
    QPixmap m_icon;
    QImage m_iconImage;
    std::string m_iconFile;
};
