#pragma once

#include <ZoGraphics/IZoGraphicsMapObject.h>

#include <QImage>

/// @file
/// The SVG picture map object and the SVG rasteriser that needs no map object.

/// An SVG picture centred on a geographic point at its natural pixel size,
/// scalable per axis and rotatable.
///
/// The object keeps a geographic extent (minimum x, minimum y, maximum x,
/// maximum y in degrees of longitude and latitude); its centre is the middle
/// of that extent. LoadSVGFile() places the picture at its natural size,
/// SetGeoExtent() stretches it over an extent, and the scale operations
/// multiply onto the picture as drawn. Paths are GB18030.
///
/// Made by IZoGraphicsModule::CreateSVGMapObject, which owns it, and found with
/// IZoGraphicsModule::LookupSVGMapObject. Most operations need the Qt item: on an
/// object that has none yet (its layer does not add items to the scene, and it
/// has not been rebuilt) they log the text given with each and do nothing.
/// When the map cannot convert the centre, the library logs
/// "[CZoSVGMapObject::ConvertSceneToPixel] ConvertSceneToPixel失败" and the
/// picture is placed at scene pixel (0, 0). GUI thread only.
class ZOGRAPHICS_EXPORT IZoSVGMapObject : public IZoGraphicsMapObject
{
public:
    IZoSVGMapObject() = default;
    /// @{ Copies of an interface share nothing: they exist only so that
    /// implementations may be copied.
    IZoSVGMapObject(const IZoSVGMapObject&) = default;
    IZoSVGMapObject& operator=(const IZoSVGMapObject&) = default;
    /// @}
    ~IZoSVGMapObject() override;

    /// Loads an SVG file (GB18030 path) and shows it at its natural pixel size,
    /// centred on center (longitude, latitude in degrees).
    ///
    /// Scales and rotation are reset to 1 and 0, and the stored extent reaches a
    /// whole picture width and height from the centre on every side, twice the
    /// picture's size. Returns true on success. Failures:
    /// - no map module: false, nothing logged;
    /// - an empty path or no Qt item: logs "[CZoSVGMapObject::LoadSVGFile] MapModule传入为空"
    ///   (the text names the map module whatever the cause) and returns false;
    /// - the path last loaded, byte for byte: logs
    ///   "[CZoSVGMapObject::LoadSVGFile] 传入路径相等，不重复加载" and returns true
    ///   without changing anything, not even the centre;
    /// - a file that does not load: logs "[CZoSVGMapObject::LoadSVGFile] Qt-Item加载SVG失败"
    ///   and returns false, yet the picture held before is still moved to center and
    ///   reset as above. Before it, a path that is not a regular file (never
    ///   opened) logs "[CZoSVGMapObject::LoadSVGFile] 不是普通文件, 拒绝读取: " and
    ///   the path, and a file whose `<image>` elements name something other than a
    ///   regular file, another SVG or a picture within 8,192 pixels a side logs
    ///   "[CZoSVGMapObject::LoadSVGFile] SVG引用的图片不可读取或过大, 拒绝加载: " and
    ///   the reference. A file (inflated, when compressed) over 64 MiB is refused too.
    virtual bool LoadSVGFile(const std::string& path, const CVector3D& center) = 0; // 59: GB18030 path
    /// The path of the file last loaded successfully; empty before.
    virtual std::string GetSVGFile() const = 0;                                     // 60
    /// The middle of the stored extent (longitude, latitude in degrees; z = 0).
    virtual CVector3D GetCenter() const = 0;                                        // 61: middle of the extent
    /// Renders the picture at its natural pixel size, unscaled and unrotated, into
    /// a transparent ARGB32 image.
    ///
    /// A picture larger than 8,192 pixels on a side is scaled down to fit, keeping
    /// its proportions, and "[CZoSVGMapObject::ConvertToImage] SVG尺寸过大, 图像已缩小到: "
    /// is logged followed by the size, as in "8192x4096". Without a Qt item logs
    /// "[CZoSVGMapObject::ConvertToImage] Qt-Item为空" and returns a null image;
    /// without an SVG renderer logs
    /// "[CZoSVGMapObject::ConvertToImage] Qt-Item获取QSvgRenderer为空" and returns a
    /// null image. Nothing loaded yet gives a null image.
    virtual QImage ConvertToImage() const = 0;                                      // 62
    // 63-66 place the picture; the stored rotation is kept.
    /// Stretches the picture to cover extent (degrees), keeping its rotation; it
    /// then follows that extent as the map zooms, until the next scale or load.
    ///
    /// Without a map module logs "[CZoSVGMapObject::SetGeoExtent] MapModule传入为空"
    /// and changes nothing; an extent with a NaN or infinite bound is ignored.
    /// Without a Qt item the extent is stored and
    /// "[CZoSVGMapObject::m_pItemQtImpl] Qt-Item为空" logged.
    virtual void SetGeoExtent(const EXTENT& extent) = 0;                            // 63: stretched to cover it
    /// The stored extent: as loaded, set, moved or last refreshed by a scale,
    /// which may differ from CalculateGeoExtent(). All zero at first.
    virtual EXTENT GetGeoExtent() const = 0;                                        // 64: the stored extent
    /// Moves the picture so that its centre is center (longitude, latitude in
    /// degrees); the extent keeps its size and moves along.
    ///
    /// Without a map module logs "[CZoSVGMapObject::SetCenter] MapModule传入为空",
    /// without a Qt item "[CZoSVGMapObject::SetCenter] Qt-Item为空"; a NaN or
    /// infinite x or y is ignored silently. In each case nothing changes.
    virtual void SetCenter(const CVector3D& center) = 0;                            // 65
    /// Moves the picture by dx degrees of longitude and dy degrees of latitude,
    /// through SetCenter() (whose log texts apply).
    virtual void MoveBy(double dx, double dy) = 0;                                  // 66: degrees of lon/lat
    /// The extent the picture covers as drawn now, scales and rotation included,
    /// from its scene rectangle truncated to whole pixels.
    ///
    /// Without a Qt item logs "[CZoSVGMapObject::CalculateGeoExtent] Qt-Item为空" and
    /// returns the stored extent; without a map module returns the stored extent
    /// silently.
    virtual EXTENT CalculateGeoExtent() const = 0;                                  // 67: from the item as drawn
    /// The width of the stored extent, measured along its middle latitude, in the
    /// map's distance unit (IZoMapModule::CalculateDistance). Without a map module
    /// logs "[CZoSVGMapObject::GetWidth] MapModule传入为空" and returns 0.
    virtual double GetWidth() const = 0;                                            // 68: map distance
    /// The height of the stored extent, measured along its middle longitude, in the
    /// map's distance unit. Without a map module logs
    /// "[CZoSVGMapObject::GetHeight] MapModule传入为空" and returns 0.
    virtual double GetHeight() const = 0;                                           // 69
    /// Multiplies the picture's horizontal and vertical scale by sx and sy.
    ///
    /// Scales accumulate: SetXYScale(2, 2) twice scales by 4. The stored extent is
    /// then refreshed from the picture as drawn (CalculateGeoExtent()) and the
    /// picture no longer follows an extent set by SetGeoExtent(). A NaN or infinite
    /// factor, one that flattens the picture (zero), or one that would make it
    /// larger than 1e9 pixels is ignored. Without a Qt item logs
    /// "[CZoSVGMapObject::SetXYScale] Qt-Item为空" and does nothing.
    virtual void SetXYScale(double sx, double sy) = 0;                              // 70: accumulates
    /// Multiplies the horizontal scale by sx, as SetXYScale() does.
    ///
    /// The vertical scale is multiplied by its own current value at the same time
    /// (a vertical scale of 2 becomes 4; 1 stays 1). Without a Qt item logs
    /// "[CZoSVGMapObject::SetXScale] Qt-Item为空" and does nothing.
    virtual void SetXScale(double sx) = 0;                                          // 71
    /// Multiplies the vertical scale by sy, as SetXYScale() does.
    ///
    /// The horizontal scale is multiplied by its own current value at the same time
    /// (a horizontal scale of 2 becomes 4; 1 stays 1). Without a Qt item logs
    /// "[CZoSVGMapObject::SetYScale] Qt-Item为空" and does nothing.
    virtual void SetYScale(double sy) = 0;                                          // 72
    /// The horizontal scale of the picture (1 at its natural size). Without a Qt
    /// item logs "[CZoSVGMapObject::GetXScale] Qt-Item为空" and returns 1.
    virtual double GetXScale() const = 0;                                           // 73
    /// The vertical scale of the picture (1 at its natural size). Without a Qt item
    /// logs "[CZoSVGMapObject::GetYScale] Qt-Item为空" and returns 1.
    virtual double GetYScale() const = 0;                                           // 74
    /// Turns the picture to an absolute angle in degrees, clockwise on screen,
    /// about its centre; the angle is kept in [0, 360). A NaN or infinite angle is
    /// ignored. Without a Qt item logs "[CZoSVGMapObject::Rotate] Qt-Item为空" and
    /// does nothing.
    virtual void Rotate(double degrees) = 0;                                        // 75: absolute angle
    /// The angle set by Rotate(), in degrees [0, 360); 0 after every load.
    virtual double GetRotation() const = 0;                                         // 76
};

/// Rasterises an SVG file (GB18030 path) without a map object. Its outcome is
/// read the other way round, and hosts rely on that.
///
/// A file that loads gives a null image and logs "[ConvertSVGToImage] Qt加载SVG失败";
/// a file that does not load (or is missing) gives the image of the renderer's
/// empty view box, which is a null image too, without a log. So no call yields a
/// picture: to rasterise an SVG, load it into an IZoSVGMapObject and use
/// IZoSVGMapObject::ConvertToImage(). A file refused as LoadSVGFile() refuses
/// it gives a null image and logs the same texts, as "[ConvertSVGToImage] ...".
ZOGRAPHICS_EXPORT QImage ConvertSVGToImage(const std::string& path);
