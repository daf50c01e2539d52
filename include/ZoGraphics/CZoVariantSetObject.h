#pragma once

#include <ZoGraphics/ZoGraphicsExport.h>

#include <QVariant>
#include <map>
#include <memory>
#include <string>

/// Keyed QVariant properties plus int-keyed user data, as every map object
/// carries them for its host. A missing key yields an invalid QVariant.
///
/// Copies are deep. Not thread-safe: guard a shared set yourself.
class ZOGRAPHICS_EXPORT CZoVariantSetObject
{
public:
    /// An empty set; it allocates nothing until the first value is stored.
    CZoVariantSetObject();
    /// Copies every property and user datum of another set.
    CZoVariantSetObject(const CZoVariantSetObject& other);
    /// Replaces this set's content with a copy of another's.
    CZoVariantSetObject& operator=(const CZoVariantSetObject& other);
    /// Destroys the set and its values.
    virtual ~CZoVariantSetObject();

    /// Stores a value under a key, replacing any earlier one. An invalid
    /// QVariant is stored too: the key then exists (HasProperty()) but reads
    /// as invalid.
    void SetProperty(const std::string& key, const QVariant& value);
    /// The value stored under a key; an invalid QVariant when there is none.
    QVariant GetProperty(const std::string& key) const;
    /// Whether a value is stored under the key.
    bool HasProperty(const std::string& key) const;
    /// Removes the value under the key; an unknown key is ignored.
    void RemoveProperty(const std::string& key);

    /// Stores user data under an int role, replacing any earlier value. Roles
    /// are separate from the string-keyed properties.
    void SetUserData(int role, const QVariant& value);
    /// The user data of a role; an invalid QVariant when there is none.
    QVariant GetUserData(int role) const;

    /// Removes every property and all user data.
    void Clear();

private:
    struct Values
    {
        std::map<std::string, QVariant> properties;
        std::map<int, QVariant> userData;
    };
    // Most objects never carry a property: the maps are made on the first one.
    Values& Made();

    std::unique_ptr<Values> m_values;
};
