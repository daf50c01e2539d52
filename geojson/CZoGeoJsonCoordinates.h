#pragma once

#include <QByteArray>
#include <QString>
#include <vector>

// The coordinate arrays of a FeatureCollection's geometries, read straight
// from the text. They are nearly all of a GeoJSON file's bytes, and building
// QJsonDocument's general values for every number and every pair costs
// several times reading the numbers themselves. Extract() cuts each
// features[i].geometry.coordinates array that is plain JSON numbers and
// arrays out of the text and leaves a placeholder string in its place, so
// that QJsonDocument still parses (and checks) everything else.
class CZoGeoJsonCoordinates
{
public:
    // A node of the coordinate trees: a number, or an array whose children are
    // children[first .. first + count).
    struct SNode
    {
        double number = 0.0;
        int first = 0;
        int count = -1; // -1 for a number
    };

    // A view of one node, with the few accessors the geometry readers use.
    class CValue
    {
    public:
        CValue(const CZoGeoJsonCoordinates* owner, int node) : m_owner(owner), m_node(node) {}
        bool isArray() const { return Node().count >= 0; }
        bool isDouble() const { return Node().count < 0; }
        int size() const { return isArray() ? Node().count : 0; }
        CValue at(int i) const { return CValue(m_owner, m_owner->m_children[static_cast<std::size_t>(Node().first + i)]); }
        double toDouble() const { return isDouble() ? Node().number : 0.0; }

    private:
        const SNode& Node() const { return m_owner->m_nodes[static_cast<std::size_t>(m_node)]; }

        const CZoGeoJsonCoordinates* m_owner;
        int m_node;
    };

    // The text with the arrays taken out. Where the text already holds
    // something that looks like a placeholder, nothing is taken out.
    QByteArray Extract(const QByteArray& json);
    // The array a placeholder string stands for, when it was cut out of the
    // given feature's geometry; false for any other string.
    bool Lookup(const QString& placeholder, int feature, int* root) const;
    CValue Value(int root) const { return CValue(this, root); }

private:
    int ReadArray(const char*& p, const char* end, int depth);
    int ReadNumber(const char*& p, const char* end);

    std::vector<SNode> m_nodes;
    std::vector<int> m_children;
    std::vector<int> m_roots;
    std::vector<int> m_features; // the feature each root was cut out of
    std::vector<int> m_pending; // children of the arrays being read, innermost last
};
