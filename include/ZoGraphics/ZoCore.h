#pragma once

/// @file
/// The core library: value types, ids, text conversion, numeric helpers,
/// variant sets and tile models. Include this to get all of them.
#include <ZoGraphics/ZoCoreTypes.h>
#include <ZoGraphics/ZoCoreUtility.h>
#include <ZoGraphics/CZoVariantSetObject.h>
#include <ZoGraphics/ZoTileModel.h>
