#pragma once

#include <fmt/format.h>

#include <functional>
#include <string>

/// A small wind file: its components are functions of longitude and latitude.
struct WindText {
    std::string title = "WIND";
    double west = 100;
    double south = 20;
    double step = 1;
    int nx = 11;
    int ny = 11;
    bool northFirst = false;
    std::function<double(double, double)> u = [](double, double) { return 10; };
    std::function<double(double, double)> v = [](double, double) { return 0; };

    std::string text() const {
        const double north = south + (ny - 1) * step;
        std::string text = fmt::format("diamond 11 {}\n2024 02 28 12 36 500\n{} {} {} {} {} {} {} {}\n",
                                       title, step, northFirst ? -step : step, west, west + (nx - 1) * step,
                                       northFirst ? north : south, northFirst ? south : north, nx, ny);
        for (const auto& component : {u, v})
            for (int j = 0; j < ny; ++j)
                for (int i = 0; i < nx; ++i)
                    text += fmt::format(
                        "{}\n", component(west + i * step, northFirst ? north - j * step : south + j * step));
        return text;
    }

    /// The same round the globe, but for the poles.
    WindText& circling() {
        west = 0;
        south = -80;
        step = 10;
        nx = 36;
        ny = 17;
        return *this;
    }
};
