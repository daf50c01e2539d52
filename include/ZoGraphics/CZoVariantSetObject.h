#pragma once

#include <ZoGraphics/ZoGraphicsExport.h>

#include <QVariant>
#include <map>
#include <memory>
#include <string>

// Keyed QVariant properties plus int-keyed user data, as every map object
// carries them for its host. A missing key yields an invalid QVariant.
class ZOGRAPHICS_EXPORT CZoVariantSetObject
{
public:
    CZoVariantSetObject();
    CZoVariantSetObject(const CZoVariantSetObject& other);
    CZoVariantSetObject& operator=(const CZoVariantSetObject& other);
    virtual ~CZoVariantSetObject();

    void SetProperty(const std::string& key, const QVariant& value);
    QVariant GetProperty(const std::string& key) const;
    bool HasProperty(const std::string& key) const;
    void RemoveProperty(const std::string& key);

    void SetUserData(int role, const QVariant& value);
    QVariant GetUserData(int role) const;

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
