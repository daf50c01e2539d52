#include <ZoGraphics/CZoVariantSetObject.h>

namespace
{
template <typename Map, typename Key>
QVariant ValueOrInvalid(const Map& map, const Key& key)
{
    const auto it = map.find(key);
    return it == map.end() ? QVariant() : it->second;
}
} // namespace

CZoVariantSetObject::CZoVariantSetObject() = default;

CZoVariantSetObject::CZoVariantSetObject(const CZoVariantSetObject& other)
    : m_values(other.m_values ? std::make_unique<Values>(*other.m_values) : nullptr)
{
}

CZoVariantSetObject& CZoVariantSetObject::operator=(const CZoVariantSetObject& other)
{
    if (this != &other)
        m_values = other.m_values ? std::make_unique<Values>(*other.m_values) : nullptr;
    return *this;
}

CZoVariantSetObject::~CZoVariantSetObject() = default;

CZoVariantSetObject::Values& CZoVariantSetObject::Made()
{
    if (!m_values)
        m_values = std::make_unique<Values>();
    return *m_values;
}

void CZoVariantSetObject::SetProperty(const std::string& key, const QVariant& value)
{
    Made().properties[key] = value;
}

QVariant CZoVariantSetObject::GetProperty(const std::string& key) const
{
    return m_values ? ValueOrInvalid(m_values->properties, key) : QVariant();
}

bool CZoVariantSetObject::HasProperty(const std::string& key) const
{
    return m_values && m_values->properties.count(key) != 0;
}

void CZoVariantSetObject::RemoveProperty(const std::string& key)
{
    if (m_values)
        m_values->properties.erase(key);
}

void CZoVariantSetObject::SetUserData(int role, const QVariant& value)
{
    Made().userData[role] = value;
}

QVariant CZoVariantSetObject::GetUserData(int role) const
{
    return m_values ? ValueOrInvalid(m_values->userData, role) : QVariant();
}

void CZoVariantSetObject::Clear()
{
    m_values.reset();
}
