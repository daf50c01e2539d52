#pragma once

#include <ZoGraphics/IZoGraphicsMapObject.h>

#include <QPixmap>

/// Shapes with an outline and a fill: 17 operations behind the base ones
/// (slots 59 to 75). The bow, circle, dot, ellipse, multi-dot, multi-polygon,
/// polygon and rectangle derive from it.
///
/// Each setter stores its value and then refreshes the item, if there is one;
/// without an item it only stores. Nothing here logs, and style numbers out of
/// Qt's range are stored and handed to Qt as given.
///
/// Textures: the fill uses the texture only while the pen style is 24 (the
/// value of Qt::TexturePattern), and the brush colour otherwise, so a texture
/// loaded earlier stays hidden until SetPenStyle() with 24. Three kinds ask
/// the brush style instead: whenever it is 24 and the texture is not null, the
/// dot and the rectangle draw the picture itself stretched over the shape,
/// and the multi-dot fills its dots with the texture, all without outline.
class ZOGRAPHICS_EXPORT IZoSurfaceStyleGraphicsMapObject : public IZoGraphicsMapObject
{
public:
    IZoSurfaceStyleGraphicsMapObject() = default;
    /// @{ Copies of an interface share nothing: they exist only so that
    /// implementations may be copied.
    IZoSurfaceStyleGraphicsMapObject(const IZoSurfaceStyleGraphicsMapObject&) = default;
    IZoSurfaceStyleGraphicsMapObject& operator=(const IZoSurfaceStyleGraphicsMapObject&) = default;
    /// @}
    ~IZoSurfaceStyleGraphicsMapObject() override;

    /// Sets the side of the shape on which the name label stands, and lays the
    /// label out again: 0 top, 1 bottom (the default), 2 left, 3 right,
    /// 4 centre. Any other value draws no label. A centred label is clipped to
    /// the outline while the layer's second shape cache is on. The polygon and
    /// the multi-polygon always centre their label.
    virtual void SetLabelPosition(unsigned int position) = 0;                 // 59: 0 top 1 bottom 2 left 3 right 4 centre
    /// The side on which the name label stands: 0 top, 1 bottom, 2 left,
    /// 3 right, 4 centre.
    virtual unsigned int GetLabelPosition() const = 0;                        // 60
    /// Sets where along its side the name label stands: 0 start (the left end
    /// of the top or bottom side, the top end of the left or right side),
    /// 1 middle (the default), 2 end; any other value draws no label. Only the
    /// bow and the rectangle use it, and they move the label at once; the
    /// other kinds store it and always stand in the middle.
    virtual void SetLabelAlignment(unsigned int alignment) = 0;               // 61: 0 start 1 middle 2 end
    /// Where along its side the name label stands: 0 start, 1 middle, 2 end.
    virtual unsigned int GetLabelAlignment() const = 0;                       // 62
    /// Sets the outline colour (default opaque blue) and repaints.
    virtual void SetPenColor(const QColor& color) = 0;                        // 63
    /// The outline colour.
    virtual QColor GetPenColor() const = 0;                                   // 64
    /// Sets the outline width in pixels (default 1.0); 0 draws no outline and
    /// keeps colour and style for a later width. A negative width, one above
    /// 1e6 or one that is not a number is ignored. The circle, dot, ellipse,
    /// multi-dot and multi-polygon rebuild their shape; the bow, rectangle and
    /// polygon only repaint, so their hit area keeps the old width until the
    /// next rebuild.
    virtual void SetPenWidth(float width) = 0;                                // 65
    /// The outline width in pixels.
    virtual float GetPenWidth() const = 0;                                    // 66
    /// Sets the outline's `Qt::PenStyle` value (default 1, a solid line) and
    /// repaints. The value 24 also makes the fill use the texture.
    virtual void SetPenStyle(unsigned int style) = 0;                         // 67: Qt::PenStyle
    /// The outline's `Qt::PenStyle` value.
    virtual unsigned int GetPenStyle() const = 0;                             // 68
    /// Sets the fill colour (default translucent grey: 139, 139, 139 at alpha
    /// 50) and repaints. The fill uses it whenever the pen style is not 24.
    virtual void SetBrushColor(const QColor& color) = 0;                      // 69
    /// The fill colour.
    virtual QColor GetBrushColor() const = 0;                                 // 70
    /// Loads the fill texture from a picture file, sets the brush style and
    /// repaints.
    /// @param brushStyle the `Qt::BrushStyle` value to store; 24
    /// (`Qt::TexturePattern`) for a texture.
    /// @param path the picture's path, GB18030-encoded, kept as given for
    /// GetBrushTextureFile(). A file that is missing or cannot be read leaves
    /// a null texture and logs nothing. A null texture is also left, with a
    /// log, by what is not a regular file (a named pipe or a device is never
    /// opened): "[<Class>::SetBrushTextureFile] 不是普通文件, 拒绝读取: "
    /// followed by the path; and by a raster picture larger than 8,192 pixels
    /// on a side, which is not decoded: "[<Class>::SetBrushTextureFile]
    /// 图片尺寸过大或未知, 拒绝解码: " followed by its size, as in "30000x30000".
    /// An SVG picture that large is rendered scaled down to fit and logs
    /// "[<Class>::SetBrushTextureFile] SVG尺寸过大, 图像已缩小到: " and the size.
    virtual void SetBrushTextureFile(unsigned int brushStyle, const std::string& path) = 0; // 71
    /// Sets the brush style and the texture picture and repaints; the texture
    /// file name stays as it was.
    virtual void SetBrushTexture(unsigned int brushStyle, const QPixmap& texture) = 0;      // 72
    /// The fill's `Qt::BrushStyle` value (default 1, a solid fill).
    virtual unsigned int GetBrushStyle() const = 0;                           // 73: Qt::BrushStyle
    /// The texture picture: null until one is set, or when its file could not
    /// be read.
    virtual QPixmap GetBrushTexture() const = 0;                              // 74
    /// The path last given to SetBrushTextureFile(), as given; empty until then.
    virtual std::string GetBrushTextureFile() const = 0;                      // 75
};
