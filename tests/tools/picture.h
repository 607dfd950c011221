#pragma once

#include <cairo.h>

#include <array>
#include <cmath>
#include <cstdlib>
#include <memory>
#include <string>

#include "chart/paper/page.h"
#include "program.h"

/// Red, green and blue, 0 to 255.
using Pixel = std::array<int, 3>;

inline Pixel pixelOf(const velmar::tool::Colour& colour) {
    const auto part = [](double c) { return static_cast<int>(std::lround(255 * c)); };
    return {part(colour.red), part(colour.green), part(colour.blue)};
}

inline bool isLike(const Pixel& a, const Pixel& b) {
    return std::abs(a[0] - b[0]) <= 2 && std::abs(a[1] - b[1]) <= 2 && std::abs(a[2] - b[2]) <= 2;
}

/// The pixels of a PNG, or of what a test has drawn.
struct Picture {
    std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)> surface;

    explicit Picture(const std::string& path) : Picture(cairo_image_surface_create_from_png(path.c_str())) {}
    Picture(int width, int height) : Picture(cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height)) {}

    int width() const { return cairo_image_surface_get_width(surface.get()); }
    int height() const { return cairo_image_surface_get_height(surface.get()); }

    Pixel at(int x, int y) const {
        cairo_surface_flush(surface.get());
        const unsigned char* const p = cairo_image_surface_get_data(surface.get()) +
                                       y * cairo_image_surface_get_stride(surface.get()) + 4 * x;
        return {p[2], p[1], p[0]};
    }

    /// How many pixels satisfy a test.
    template <class Test>
    int count(Test test) const {
        return countIn(0, width(), 0, height(), test);
    }
    template <class Test>
    int countIn(int left, int right, int top, int bottom, Test test) const {
        int found = 0;
        for (int y = top; y < bottom; ++y)
            for (int x = left; x < right; ++x) found += test(at(x, y));
        return found;
    }
    int count(const velmar::tool::Colour& colour) const {
        return count([&](const Pixel& p) { return isLike(p, pixelOf(colour)); });
    }

    int differences(const Picture& other) const {
        EXPECT_EQ(width(), other.width());
        int found = 0;
        for (int y = 0; y < height(); ++y)
            for (int x = 0; x < width(); ++x)
                for (std::size_t c = 0; c < 3; ++c) found += std::abs(at(x, y)[c] - other.at(x, y)[c]) > 64;
        return found;
    }

private:
    explicit Picture(cairo_surface_t* taken) : surface(taken, cairo_surface_destroy) {
        EXPECT_EQ(cairo_surface_status(taken), CAIRO_STATUS_SUCCESS);
    }
};

/// A white map without margins that layers are drawn on.
struct BareMap {
    Picture picture;
    std::unique_ptr<cairo_t, decltype(&cairo_destroy)> ink;
    velmar::tool::Page page;

    BareMap(const velmar::tool::GeoBox& bounds, int width, int height)
        : picture(width, height),
          ink(cairo_create(picture.surface.get()), cairo_destroy),
          page{ink.get(), {bounds, {0, 0, static_cast<double>(width), static_cast<double>(height)}}, {}} {
        setColour(page.ink, velmar::tool::white);
        cairo_paint(page.ink);
    }

    template <class Layer>
    void draw(Layer&& layer) {
        layer.place(page);
        layer.draw(page);
    }

    Pixel at(double longitude, double latitude) const {
        const auto [x, y] = page.map.toPaper(longitude, latitude);
        return picture.at(static_cast<int>(x), static_cast<int>(y));
    }
};

/// Tests that look at what the program has drawn.
class PictureTest : public ProgramTest {
protected:
    /// The picture that a run makes. It has to succeed and may have something to say.
    Picture drawn(const Arguments& arguments, const Arguments& more = {},
                  const std::string& sentence = {}) const {
        Arguments rest = more;
        rest.insert(rest.end(), {"-o", path("c.png")});
        expectReplies(arguments, {{{}, 0, sentence}}, rest);
        return Picture(path("c.png"));
    }
};
