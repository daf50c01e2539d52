#include "ZoDouglasPeucker.h"

#include <cmath>
#include <cstdint>
#include <limits>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace
{
constexpr std::size_t kNone = static_cast<std::size_t>(-1);

struct Span
{
    std::size_t first;
    std::size_t last;
};

// The points as three contiguous float arrays, converted once.
class FloatPath
{
public:
    explicit FloatPath(const std::vector<CVector3D>& in) : m_n(in.size()), m_data(3 * in.size())
    {
        float* x = m_data.data();
        float* y = x + m_n;
        float* z = y + m_n;
        for (std::size_t i = 0; i < m_n; ++i)
        {
            x[i] = static_cast<float>(in[i].x);
            y[i] = static_cast<float>(in[i].y);
            z[i] = static_cast<float>(in[i].z);
        }
    }

    const float* X() const { return m_data.data(); }
    const float* Y() const { return m_data.data() + m_n; }
    const float* Z() const { return m_data.data() + 2 * m_n; }

    CVector3D Point(std::size_t i) const { return CVector3D(X()[i], Y()[i], Z()[i]); }

private:
    std::size_t m_n;
    std::vector<float> m_data;
};

// Distances from the infinite line through a span's ends. Products and
// lengths stay in float and only k and its root go to double.
class LineProbe
{
public:
    LineProbe(const FloatPath& path, Span span)
        : m_x(path.X()), m_y(path.Y()), m_z(path.Z()), m_ax(m_x[span.first]), m_ay(m_y[span.first]),
          m_az(m_z[span.first]), m_ux(m_x[span.last] - m_ax), m_uy(m_y[span.last] - m_ay),
          m_uz(m_z[span.last] - m_az), m_lu(std::sqrt(m_ux * m_ux + m_uy * m_uy + m_uz * m_uz))
    {
    }

    // Both ends coincide: the distance is the one to the start.
    bool Degenerate() const { return m_lu <= 0.0f; }

    // NaN when rounding pushes |k| above 1; such a point never counts as
    // farthest, and returning early keeps sqrt off its slow errno path.
    double Distance(std::size_t i) const
    {
        const float vx = m_x[i] - m_ax, vy = m_y[i] - m_ay, vz = m_z[i] - m_az;
        const float lv = std::sqrt(vx * vx + vy * vy + vz * vz);
        if (Degenerate())
            return lv;
        if (!(lv > 0.0f))
            return 0.0;
        const double k = static_cast<double>(m_ux * vx + m_uy * vy + m_uz * vz) / (static_cast<double>(m_lu) * lv);
        const double sine2 = 1.0 - k * k;
        if (!(sine2 >= 0.0))
            return std::numeric_limits<double>::quiet_NaN();
        return lv * std::sqrt(sine2);
    }

#if defined(__SSE2__)
    // Distance() of points i .. i+3 for a span that is not degenerate, with
    // the very same roundings lane by lane.
    void Distance4(std::size_t i, __m128d& d01, __m128d& d23) const
    {
        const __m128 vx = _mm_sub_ps(_mm_loadu_ps(m_x + i), _mm_set1_ps(m_ax));
        const __m128 vy = _mm_sub_ps(_mm_loadu_ps(m_y + i), _mm_set1_ps(m_ay));
        const __m128 vz = _mm_sub_ps(_mm_loadu_ps(m_z + i), _mm_set1_ps(m_az));
        const __m128 lv =
            _mm_sqrt_ps(_mm_add_ps(_mm_add_ps(_mm_mul_ps(vx, vx), _mm_mul_ps(vy, vy)), _mm_mul_ps(vz, vz)));
        const __m128 dot = _mm_add_ps(_mm_add_ps(_mm_mul_ps(_mm_set1_ps(m_ux), vx), _mm_mul_ps(_mm_set1_ps(m_uy), vy)),
                                      _mm_mul_ps(_mm_set1_ps(m_uz), vz));
        d01 = FromFloats(_mm_cvtps_pd(lv), _mm_cvtps_pd(dot));
        d23 = FromFloats(_mm_cvtps_pd(_mm_movehl_ps(lv, lv)), _mm_cvtps_pd(_mm_movehl_ps(dot, dot)));
    }
#endif

private:
#if defined(__SSE2__)
    __m128d FromFloats(__m128d lv, __m128d dot) const
    {
        const __m128d k = _mm_div_pd(dot, _mm_mul_pd(_mm_set1_pd(m_lu), lv));
        const __m128d sine2 = _mm_sub_pd(_mm_set1_pd(1.0), _mm_mul_pd(k, k));
        const __m128d d = _mm_mul_pd(lv, _mm_sqrt_pd(sine2));
        return _mm_and_pd(d, _mm_cmpgt_pd(lv, _mm_setzero_pd()));
    }
#endif

    const float* m_x;
    const float* m_y;
    const float* m_z;
    float m_ax, m_ay, m_az;
    float m_ux, m_uy, m_uz;
    float m_lu;
};

// The largest distance offered, and the first index that had it.
struct Farthest
{
    double largest = -1.0;
    std::size_t index = kNone;

    void Offer(double d, std::size_t i)
    {
        if (d > largest)
        {
            largest = d;
            index = i;
        }
    }
};

// Index of the first point of (first, last) at the largest distance from the
// line through the ends, or kNone when that distance is below the tolerance.
std::size_t FarthestPoint(const FloatPath& path, Span span, double tolerance)
{
    if (span.last - span.first < 2)
        return kNone;
    const LineProbe probe(path, span);
    Farthest farthest;
    std::size_t i = span.first + 1;
#if defined(__SSE2__)
    if (!probe.Degenerate())
    {
        __m128d largest = _mm_set1_pd(farthest.largest);
        for (; i + 4 <= span.last; i += 4)
        {
            __m128d d01, d23;
            probe.Distance4(i, d01, d23);
            if (!_mm_movemask_pd(_mm_or_pd(_mm_cmpgt_pd(d01, largest), _mm_cmpgt_pd(d23, largest))))
                continue;
            double d[4];
            _mm_storeu_pd(d, d01);
            _mm_storeu_pd(d + 2, d23);
            for (std::size_t j = 0; j < 4; ++j)
                farthest.Offer(d[j], i + j);
            largest = _mm_set1_pd(farthest.largest);
        }
    }
#endif
    for (; i < span.last; ++i)
        farthest.Offer(probe.Distance(i), i);
    if (farthest.index == kNone || tolerance > farthest.largest)
        return kNone;
    return farthest.index;
}
} // namespace

namespace ZoGraphicsInternalNS
{
void DouglasPeuckerReduce(std::vector<CVector3D>& kept, const std::vector<CVector3D>& in, double tolerance)
{
    const std::size_t n = in.size();
    if (n == 0)
        return;
    const FloatPath path(in);
    std::vector<std::uint8_t> keep(n, 0);
    // Finishing the shorter half first keeps the pending stack logarithmic
    // even when every split peels off a single point.
    std::vector<Span> pending;
    Span span{0, n - 1};
    for (;;)
    {
        const std::size_t k = FarthestPoint(path, span, tolerance);
        if (k == kNone)
        {
            keep[span.first] = 1;
            keep[span.last] = 1;
            if (pending.empty())
                break;
            span = pending.back();
            pending.pop_back();
            continue;
        }
        const Span left{span.first, k};
        const Span right{k, span.last};
        const bool leftShorter = k - span.first <= span.last - k;
        pending.push_back(leftShorter ? right : left);
        span = leftShorter ? left : right;
    }

    std::size_t count = 0;
    for (const std::uint8_t flag : keep)
        count += flag;
    kept.reserve(kept.size() + count);
    for (std::size_t i = 0; i < n; ++i)
    {
        if (keep[i])
            kept.push_back(path.Point(i));
    }
}
} // namespace ZoGraphicsInternalNS
