#pragma once

#include <ZoGraphics/ZoGraphicsExport.h>
#include <ZoGraphics/ZoCoreTypes.h>

/// @file
/// Tile models of the core library: how longitude and latitude map to world
/// pixels at each level of detail.

/// Tiling schemes of the core library. Only the two below have a tile model;
/// ITileModel::GetTileModel returns null for every other value.
enum E_TILE_MODEL
{
    E_TILE_MODEL_NONE = 0, ///< No tiling scheme and no tile model.
    /// Web Mercator, EPSG:3857: one 256-pixel tile at level 0. Latitudes are
    /// clamped to ±85.05112877980659 degrees, the edge of the square world.
    E_TILE_MODEL_WEB_MERCATOR = 1,
    /// Geographic longitude/latitude, EPSG:4326: two 256-pixel tiles across
    /// and one down at level 0, covering ±180 by ±90 degrees.
    E_TILE_MODEL_GEODETIC = 2,
};

/// A tiling scheme: geographic longitude/latitude to world pixels at a level.
///
/// World pixels have their origin at the top-left corner of the world with y
/// growing downwards. Levels run from GetMinLevel() to GetMaxLevel() (0 to 21
/// in the library's models); tiles are 256 pixels square and double in number
/// along each axis from one level to the next. The geographic-to-pixel
/// conversion used by the graphics library sits at virtual slot 31; the slots
/// before it are the model's descriptive queries and reserved operations that
/// keep that numbering.
///
/// In the library's models a conversion that fails (null output, non-finite
/// input, level out of range, pixel beyond the int range) returns false and
/// leaves the outputs untouched. The models are immutable and safe to use from
/// any thread.
class ZOGRAPHICS_EXPORT CTileModel
{
public:
    /// Destroys the model. The shared models of ITileModel are never to be
    /// deleted by callers.
    virtual ~CTileModel();                                             // 0

    /// The scheme this model implements.
    virtual E_TILE_MODEL GetKind() const = 0;                          // 1
    /// The EPSG code of the projection: 3857 or 4326.
    virtual int GetEPSG() const = 0;                                   // 2
    /// The edge of a tile in pixels: 256.
    virtual int GetTileSize() const = 0;                               // 3
    /// The lowest valid level: 0.
    virtual int GetMinLevel() const = 0;                               // 4
    /// The highest valid level: 21.
    virtual int GetMaxLevel() const = 0;                               // 5
    /// The number of tile columns at a level; 0 for an invalid level.
    virtual int GetTileCountX(int level) const = 0;                    // 6
    /// The number of tile rows at a level; 0 for an invalid level.
    virtual int GetTileCountY(int level) const = 0;                    // 7
    /// The width of the world in pixels at a level; 0.0 for an invalid level.
    virtual double GetWorldPixelWidth(int level) const = 0;            // 8
    /// The height of the world in pixels at a level; 0.0 for an invalid level.
    virtual double GetWorldPixelHeight(int level) const = 0;           // 9
    /// Map units per pixel at a level (metres for Web Mercator, degrees for
    /// the geodetic model); 0.0 for an invalid level.
    virtual double GetResolution(int level) const = 0;                 // 10: map units per pixel
    /// The valid longitude/latitude range in degrees.
    virtual EXTENT GetGeoExtent() const = 0;                           // 11: valid lon/lat range
    /// Whether a level lies in [GetMinLevel(), GetMaxLevel()].
    virtual bool IsValidLevel(int level) const = 0;                    // 12
    /// The column and row of the tile holding a geographic point (degrees) at
    /// a level; the right and bottom edges of the world belong to the last
    /// tile. False, outputs untouched, for a point outside the world or a
    /// failed conversion.
    virtual bool GetTileOfGeo(int* col, int* row, int level, double x, double y) const = 0; // 13
    /// The geographic extent (degrees) of a tile; an all-zero extent for an
    /// invalid level, column or row.
    virtual EXTENT GetTileGeoExtent(int col, int row, int level) const = 0;                  // 14
    /// @{ Reserved operations that hold the slot numbering; they return 0.
    virtual int ReservedSlot15() const;
    virtual int ReservedSlot16() const;
    virtual int ReservedSlot17() const;
    virtual int ReservedSlot18() const;
    virtual int ReservedSlot19() const;
    virtual int ReservedSlot20() const;
    virtual int ReservedSlot21() const;
    virtual int ReservedSlot22() const;
    virtual int ReservedSlot23() const;
    virtual int ReservedSlot24() const;
    virtual int ReservedSlot25() const;
    virtual int ReservedSlot26() const;
    virtual int ReservedSlot27() const;
    virtual int ReservedSlot28() const;
    virtual int ReservedSlot29() const;
    virtual int ReservedSlot30() const;
    /// @}
    /// Converts a geographic point (x = longitude, y = latitude, degrees) to
    /// integer world pixels at a level, rounded to the nearest pixel.
    virtual bool ConvertGeoToPixel(int* px, int* py, int level, double x, double y) const = 0; // 31
    /// Converts a geographic point (degrees) to fractional world pixels at a
    /// level, unrounded.
    virtual bool ConvertGeoToPixel(double* px, double* py, int level, double x, double y) const = 0; // 32
    /// Converts integer world pixels back to a geographic point (degrees).
    /// Pixels outside the world are not rejected; they convert by the same
    /// formula.
    virtual bool ConvertPixelToGeo(double* x, double* y, int level, int px, int py) const = 0; // 33
    /// Converts fractional world pixels back to a geographic point (degrees),
    /// as the integer overload does.
    virtual bool ConvertPixelToGeo(double* x, double* y, int level, double px, double py) const = 0; // 34
};

/// Access to the process-wide tile models.
class ZOGRAPHICS_EXPORT ITileModel
{
public:
    /// The process-wide tile model of a kind, or null when the kind has none.
    /// The flag is kept for the callers that pass it; the models are shared
    /// singletons either way and must not be deleted. Thread-safe; nothing is
    /// logged.
    static CTileModel* GetTileModel(E_TILE_MODEL kind, bool shared = true);
    /// The same for a kind given as an int, as IZoMapModule::GetTileModelKind()
    /// gives it.
    static CTileModel* GetTileModel(int kind, bool shared = true)
    {
        return GetTileModel(static_cast<E_TILE_MODEL>(kind), shared);
    }
};
