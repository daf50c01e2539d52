#include <ZoGraphics/CZoVariantSetObject.h>

namespace
{
template <typename Map, typename Key>
QVariant ValueOrInvalid(const Map& map, const Key& key)
{
    const auto it = map.find(key);
    return it == map.end() ? QVariant() : it->second;
}
}

CZoVariantSetObject::CZoVariantSetObject() = default;
CZoVariantSetObject::CZoVariantSetObject(const CZoVariantSetObject& other) = default;
CZoVariantSetObject& CZoVariantSetObject::operator=(const CZoVariantSetObject& other) = default;
CZoVariantSetObject::~CZoVariantSetObject() = default;

void CZoVariantSetObject::SetProperty(const std::string& key, const QVariant& value)
{
    m_properties[key] = value;
}

QVariant CZoVariantSetObject::GetProperty(const std::string& key) const
{
    return ValueOrInvalid(m_properties, key);
}

bool CZoVariantSetObject::HasProperty(const std::string& key) const
{
    return m_properties.count(key) != 0;
}

void CZoVariantSetObject::RemoveProperty(const std::string& key)
{
    m_properties.erase(key);
}

void CZoVariantSetObject::SetUserData(int role, const QVariant& value)
{
    m_userData[role] = value;
}

QVariant CZoVariantSetObject::GetUserData(int role) const
{
    return ValueOrInvalid(m_userData, role);
}

void CZoVariantSetObject::Clear()
{
    m_properties.clear();
    m_userData.clear();
}
