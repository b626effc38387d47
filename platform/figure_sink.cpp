#include "platform/figure_sink.h"

namespace zw {

void FigureSink::clear(Colour background) {
    items_.clear();
    Item item;
    item.colour = background;
    items_.push_back(std::move(item));
}

void FigureSink::polyline(const PixelPoint* points, std::size_t count, Colour colour, int width) {
    if (count == 0) {
        return;
    }
    Item item;
    item.kind = Kind::kPolyline;
    item.colour = colour;
    item.width = width;
    item.points.assign(points, points + count);
    items_.push_back(std::move(item));
}

void FigureSink::circle(PixelPoint centre, double radius, const DiscStyle& style) {
    Item item;
    item.kind = Kind::kCircle;
    item.points.push_back(centre);
    item.radius = radius;
    item.disc = style;
    items_.push_back(std::move(item));
}

void FigureSink::text(PixelPoint at, const std::string& utf8, const TextStyle& style) {
    Item item;
    item.kind = Kind::kText;
    item.points.push_back(at);
    item.text = utf8;
    item.textStyle = style;
    items_.push_back(std::move(item));
}

void FigureSink::replay(Sink& sink) const {
    for (const Item& item : items_) {
        switch (item.kind) {
            case Kind::kBackground:
                sink.clear(item.colour);
                break;
            case Kind::kPolyline:
                sink.polyline(item.points.data(), item.points.size(), item.colour, item.width);
                break;
            case Kind::kCircle:
                sink.circle(item.points[0], item.radius, item.disc);
                break;
            case Kind::kText:
                sink.text(item.points[0], item.text, item.textStyle);
                break;
        }
    }
}

}  // namespace zw
