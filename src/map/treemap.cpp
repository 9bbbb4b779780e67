#include "map/treemap.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace corvane {

namespace {

/// The minimum area, so that a weight of zero still has a position in its row.
constexpr double smallestArea = 0.0001;

/// A row being filled along one side. Its worst aspect ratio is that of the largest or smallest member, so only these
/// two are kept.
class Row {
public:
    explicit Row(double side) : m_sideSquared(side * side) {}

    [[nodiscard]] bool admits(double area) const { return m_total == 0 || worstRatio(with(area)) <= worstRatio(*this); }
    void add(double area) { *this = with(area); }
    [[nodiscard]] double total() const { return m_total; }

private:
    [[nodiscard]] Row with(double area) const
    {
        Row row = *this;
        row.m_smallest = m_total == 0 ? area : std::min(m_smallest, area);
        row.m_largest = m_total == 0 ? area : std::max(m_largest, area);
        row.m_total = m_total + area;
        return row;
    }
    [[nodiscard]] static double worstRatio(const Row &row)
    {
        const double totalSquared = row.m_total * row.m_total;
        return std::max(row.m_sideSquared * row.m_largest / totalSquared,
                        totalSquared / (row.m_sideSquared * row.m_smallest));
    }

    double m_sideSquared;
    double m_total = 0;
    double m_smallest = 0;
    double m_largest = 0;
};

/// Stacks the areas from top to bottom in a column at the left edge of `free`, and shrinks `free` accordingly.
void placeColumn(std::span<const double> areas, double total, Rect &free, std::span<Rect> placed)
{
    const double width = total / free.height;
    double y = free.y;
    for (std::size_t i = 0; i < areas.size(); ++i) {
        const double height = areas[i] / width;
        placed[i] = {free.x, y, width, height};
        y += height;
    }
    free.x += width;
    free.width -= width;
}

/// Places the areas from left to right in a strip along the top edge of `free`, and shrinks `free` accordingly.
void placeStrip(std::span<const double> areas, double total, Rect &free, std::span<Rect> placed)
{
    const double height = total / free.width;
    double x = free.x;
    for (std::size_t i = 0; i < areas.size(); ++i) {
        const double width = areas[i] / height;
        placed[i] = {x, free.y, width, height};
        x += width;
    }
    free.y += height;
    free.height -= height;
}

} // namespace

std::vector<Rect> Treemap::squarify(std::span<const double> weights, const Rect &rect)
{
    std::vector<Rect> result(weights.size());
    const double sum = std::accumulate(weights.begin(), weights.end(), 0.0);
    if (!(sum > 0) || !std::isfinite(sum) || !(rect.width > 0) || !(rect.height > 0))
        return result;

    const double whole = rect.width * rect.height;
    std::vector<double> areas(weights.size());
    std::transform(weights.begin(), weights.end(), areas.begin(),
                   [&](double weight) { return std::max(weight * whole / sum, smallestArea); });

    Rect free = rect;
    std::size_t first = 0;
    while (first < areas.size()) {
        const double side = std::min(free.width, free.height);
        if (!(side > 0))
            break;
        Row row(side);
        std::size_t end = first;
        while (end < areas.size() && row.admits(areas[end]))
            row.add(areas[end++]);

        const std::span<const double> members(areas.data() + first, end - first);
        const std::span<Rect> placed(result.data() + first, end - first);
        if (free.height <= free.width)
            placeColumn(members, row.total(), free, placed);
        else
            placeStrip(members, row.total(), free, placed);
        first = end;
    }
    return result;
}

} // namespace corvane
