#include "geojson/CZoGeoJsonCoordinates.h"
#include "platform/core/ZoQtCompat.h"

#include <charconv>
#include <cstdint>
#include <cmath>
#include <cstring>
#include <string_view>

namespace
{
// Deeper arrays than a MultiPolygon's are no coordinates; QJsonDocument
// reads them, and the geometry is refused as usual.
constexpr int kMaxDepth = 6;

bool IsSpace(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

const char* SkipSpace(const char* p, const char* end)
{
    while (p < end && IsSpace(*p))
        ++p;
    return p;
}

// A plain decimal (no exponent) of at most 15 significant digits and 22
// decimals is an exact integer divided by an exact power of ten, and one
// IEEE division of exact operands is correctly rounded: the same double as
// any correct reader gives, for the common case, at a fraction of the cost.
bool ShortDecimal(const char* p, const char* end, double* value)
{
    static constexpr double kPowers[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                         1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
    const bool negative = p < end && *p == '-';
    p += negative ? 1 : 0;
    std::uint64_t digits = 0;
    int count = 0;
    int decimals = -1;
    for (; p < end; ++p)
    {
        if (*p == '.')
        {
            decimals = 0;
            continue;
        }
        if (!IsDigit(*p) || ++count > 15)
            return false;
        digits = digits * 10 + static_cast<std::uint64_t>(*p - '0');
        decimals += decimals >= 0 ? 1 : 0;
    }
    if (decimals < 0 || decimals > 22)
        return false;
    const double magnitude = static_cast<double>(digits) / kPowers[decimals];
    *value = negative ? -magnitude : magnitude;
    return true;
}

// What the scanner knows of an open object or array.
struct SFrame
{
    bool object = false;
    int element = 0;     // of an array: the index of the current element
    std::string_view key; // of an object: the key of the current member, raw
};

// Inside features[i].geometry of the FeatureCollection, at its "coordinates".
bool AtCoordinates(const std::vector<SFrame>& stack)
{
    return stack.size() == 4 && stack[0].object && stack[0].key == "features" && !stack[1].object &&
           stack[2].object && stack[2].key == "geometry" && stack[3].object && stack[3].key == "coordinates";
}
} // namespace

QByteArray CZoGeoJsonCoordinates::Extract(const QByteArray& json)
{
    *this = CZoGeoJsonCoordinates();
    // A placeholder needs a NUL character in a string, which no coordinate
    // array holds; text that has one keeps everything for QJsonDocument.
    if (json.contains("\\u0000"))
        return json;
    const char* begin = json.constData();
    const char* end = begin + json.size();
    const char* copied = begin;
    QByteArray out;
    // The nodes grow with the coordinates found: reserving from the text's
    // length would ask for gigabytes for text that holds none (zeros, or
    // one long string).
    std::vector<SFrame> stack;
    std::string_view lastString;
    for (const char* p = begin; p < end;)
    {
        switch (*p)
        {
        case '"':
        {
            const char* s = ++p;
            while (p < end && *p != '"')
                p += *p == '\\' && p + 1 < end ? 2 : 1;
            lastString = std::string_view(s, static_cast<std::size_t>(p - s));
            if (p < end)
                ++p;
            break;
        }
        case ':':
            if (!stack.empty() && stack.back().object)
                stack.back().key = lastString;
            ++p;
            break;
        case ',':
            if (!stack.empty() && !stack.back().object)
                ++stack.back().element;
            ++p;
            break;
        case '{':
            stack.push_back({true, 0, {}});
            ++p;
            break;
        case '[':
        {
            if (AtCoordinates(stack))
            {
                const std::size_t nodes = m_nodes.size();
                const std::size_t children = m_children.size();
                const char* q = p;
                const int root = ReadArray(q, end, 0);
                if (root >= 0)
                {
                    if (out.isEmpty())
                        out.reserve(json.size());
                    out.append(copied, static_cast<int>(p - copied));
                    out.append("\"\\u0000").append(QByteArray::number(static_cast<int>(m_roots.size()))).append('"');
                    m_roots.push_back(root);
                    m_features.push_back(stack[1].element);
                    copied = p = q;
                    break;
                }
                m_nodes.resize(nodes);
                m_children.resize(children);
                m_pending.clear();
            }
            stack.push_back({false, 0, {}});
            ++p;
            break;
        }
        case '}':
        case ']':
            if (!stack.empty())
                stack.pop_back();
            ++p;
            break;
        default:
            ++p;
            break;
        }
    }
    if (m_roots.empty())
        return json;
    out.append(copied, static_cast<int>(end - copied));
    return out;
}

bool CZoGeoJsonCoordinates::Lookup(const QString& placeholder, int feature, int* root) const
{
    if (placeholder.size() < 2 || placeholder.at(0) != QChar(0))
        return false;
    bool ok = false;
    const int k = ZoQtCompat::MidView(placeholder, 1).toInt(&ok);
    if (!ok || k < 0 || k >= static_cast<int>(m_roots.size()) || m_features[static_cast<std::size_t>(k)] != feature)
        return false;
    *root = m_roots[static_cast<std::size_t>(k)];
    return true;
}

// p is at '['; on success p is past the matching ']'. -1 when the array is
// not plain numbers and arrays in strict JSON.
int CZoGeoJsonCoordinates::ReadArray(const char*& p, const char* end, int depth)
{
    if (depth >= kMaxDepth)
        return -1;
    ++p;
    const int node = static_cast<int>(m_nodes.size());
    m_nodes.emplace_back();
    const std::size_t mark = m_pending.size();
    p = SkipSpace(p, end);
    if (p < end && *p == ']')
        ++p;
    else
    {
        for (;;)
        {
            p = SkipSpace(p, end);
            if (p >= end)
                return -1;
            const int child = *p == '[' ? ReadArray(p, end, depth + 1) : ReadNumber(p, end);
            if (child < 0)
                return -1;
            m_pending.push_back(child);
            p = SkipSpace(p, end);
            if (p >= end)
                return -1;
            if (*p == ']')
            {
                ++p;
                break;
            }
            if (*p != ',')
                return -1;
            ++p;
        }
    }
    SNode& array = m_nodes[static_cast<std::size_t>(node)];
    array.first = static_cast<int>(m_children.size());
    array.count = static_cast<int>(m_pending.size() - mark);
    m_children.insert(m_children.end(), m_pending.begin() + static_cast<std::ptrdiff_t>(mark), m_pending.end());
    m_pending.resize(mark);
    return node;
}

// A JSON number, read to the same double as QJsonDocument reads it: integers
// that fit 64 bits through the integer, everything else correctly rounded.
// Numbers QJsonDocument would refuse or read otherwise (out of range) are
// left to it.
int CZoGeoJsonCoordinates::ReadNumber(const char*& p, const char* end)
{
    const char* start = p;
    const char* q = p;
    if (q < end && *q == '-')
        ++q;
    if (q >= end || !IsDigit(*q))
        return -1;
    if (*q == '0')
        ++q;
    else
        while (q < end && IsDigit(*q))
            ++q;
    bool integer = true;
    if (q < end && *q == '.')
    {
        integer = false;
        ++q;
        if (q >= end || !IsDigit(*q))
            return -1;
        while (q < end && IsDigit(*q))
            ++q;
    }
    if (q < end && (*q == 'e' || *q == 'E'))
    {
        integer = false;
        ++q;
        if (q < end && (*q == '+' || *q == '-'))
            ++q;
        if (q >= end || !IsDigit(*q))
            return -1;
        while (q < end && IsDigit(*q))
            ++q;
    }
    SNode number;
    long long whole = 0;
    if (integer && std::from_chars(start, q, whole).ec == std::errc())
        number.number = static_cast<double>(whole);
    else if (!ShortDecimal(start, q, &number.number))
    {
        const std::from_chars_result read = std::from_chars(start, q, number.number);
        if (read.ec != std::errc() || read.ptr != q || !std::isfinite(number.number))
            return -1;
    }
    // QJsonDocument keeps integral values as integers, which have no
    // negative zero.
    if (number.number == 0.0)
        number.number = 0.0;
    p = q;
    m_nodes.push_back(number);
    return static_cast<int>(m_nodes.size()) - 1;
}
