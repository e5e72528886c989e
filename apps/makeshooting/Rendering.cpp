// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "apps/makeshooting/Rendering.h"

#include "apps/makeshooting/Noise.h"

#include <QtMath>
#include <array>
#include <atomic>
#include <cstddef>
#include <thread>
#include <vector>

namespace makeshooting {

namespace {

/// The sRGB curve as a table.
class ToneCurve {
public:
    ToneCurve()
    {
        for (std::size_t i = 0; i < m_values.size(); ++i) {
            const double light = static_cast<double>(i) / static_cast<double>(kSteps);
            m_values[i] = static_cast<float>(255.0
                * (light <= 0.0031308 ? 12.92 * light : 1.055 * std::pow(light, 1 / 2.4) - 0.055));
        }
    }

    /// 0..255, not rounded.
    float operator()(float light) const
    {
        const float place = clamp01(light) * static_cast<float>(kSteps);
        const auto index = static_cast<std::size_t>(place);
        return mix(m_values[index], m_values[index + 1], place - static_cast<float>(index));
    }

private:
    static constexpr std::size_t kSteps = 8192;
    std::array<float, kSteps + 2> m_values{};
};

/// Exposes one row of light after the other.
class Film {
public:
    Film(const QSize &size, const Exposure &exposure)
        : m_exposure(exposure)
        , m_gain(static_cast<float>(std::exp2(exposure.ev)))
        , m_image(size, QImage::Format_RGB32)
    {
    }

    QRgb *row(int y)
    {
        return reinterpret_cast<QRgb *>(m_bits + std::ptrdiff_t{y} * m_image.bytesPerLine());
    }

    QRgb develop(const Colour &light, int x, int y) const
    {
        const auto noise = static_cast<float>(m_exposure.noise);
        const auto level = [&](float value, int channel) {
            float result = toneCurve()(value * m_gain) + 0.5F;
            if (noise > 0)
                result
                    += noise * bellCurve(scramble(scramble(m_exposure.noiseSeed, x, y), channel));
            return static_cast<int>(std::min(255.0F, std::max(0.0F, result)));
        };
        return qRgb(level(light.r, 0), level(light.g, 1), level(light.b, 2));
    }

    QImage image() && { return std::move(m_image); }

private:
    static const ToneCurve &toneCurve()
    {
        static const ToneCurve kCurve;
        return kCurve;
    }

    Exposure m_exposure;
    float m_gain;
    QImage m_image;
    uchar *m_bits = m_image.bits(); // detached once, so that threads may fill rows
};

/// Rendering of one picture: the light at each pixel's middle, and where that differs from the
/// neighbours (an edge passes) the mean over the pixel instead.
template <typename Ray> class Renderer {
public:
    Renderer(const Scene &scene, int width, Ray ray)
        : m_scene(scene)
        , m_width(width)
        , m_ray(std::move(ray))
    {
    }

    /// Rows \a first to \a last - 1 onto \a film.
    void render(Film &film, int first, int last) const
    {
        std::vector<Colour> above = middles(first - 1);
        std::vector<Colour> row = middles(first);
        for (int y = first; y < last; ++y) {
            std::vector<Colour> below = middles(y + 1);
            QRgb *pixels = film.row(y);
            for (int x = 0; x < m_width; ++x) {
                const auto i = static_cast<std::size_t>(x) + 1;
                const bool edge = differ(row[i], row[i - 1]) || differ(row[i], row[i + 1])
                    || differ(row[i], above[i]) || differ(row[i], below[i]);
                pixels[x] = film.develop(edge ? mean(row[i], x, y) : row[i], x, y);
            }
            above.swap(row);
            row.swap(below);
        }
    }

private:
    Colour at(double x, double y) const { return m_scene.light(m_ray(x, y)); }

    /// A pixel more on either side, for the comparison.
    std::vector<Colour> middles(int y) const
    {
        std::vector<Colour> row(static_cast<std::size_t>(m_width) + 2);
        for (std::size_t i = 0; i < row.size(); ++i)
            row[i] = at(static_cast<double>(i) - 0.5, y + 0.5);
        return row;
    }

    /// Of the pixel's middle and a turned square of places round it, so that upright and level
    /// edges meet five different distances.
    Colour mean(const Colour &middle, int x, int y) const
    {
        const Colour around = at(x + 0.375, y + 0.125) + at(x + 0.875, y + 0.375)
            + at(x + 0.625, y + 0.875) + at(x + 0.125, y + 0.625);
        return (middle + around) * 0.2F;
    }

    /// Whether two lights look different: about 12 steps of 255.
    static bool differ(const Colour &a, const Colour &b)
    {
        const auto seen = [](float p, float q) {
            const float d = p - q;
            return d * d > 0.0045F * (p + q + 0.01F);
        };
        return seen(a.r, b.r) || seen(a.g, b.g) || seen(a.b, b.b);
    }

    const Scene &m_scene;
    int m_width;
    Ray m_ray;
};

} // namespace

QImage takePicture(
    const Scene &scene, const Camera &camera, const Rotation &rotation, const Exposure &exposure)
{
    Film film(camera.size, exposure);
    const Renderer renderer(scene, camera.size.width(),
        [&](double x, double y) { return rotation * camera.ray(x, y); });
    renderer.render(film, 0, camera.size.height());
    return std::move(film).image();
}

QImage wholeScene(const Scene &scene, int width, int threads)
{
    const int height = width / 2;
    const double step = 2.0 * M_PI / width;
    Film film({width, height}, {});
    const Renderer renderer(scene, width, [&](double x, double y) {
        const double yaw = (x - width / 2.0) * step;
        const double pitch = (height / 2.0 - y) * step;
        return Vector{
            std::sin(yaw) * std::cos(pitch), std::sin(pitch), std::cos(yaw) * std::cos(pitch)};
    });
    constexpr int kBand = 16;
    forEachInParallel((height + kBand - 1) / kBand, threads, [&](int band) {
        renderer.render(film, band * kBand, std::min(height, (band + 1) * kBand));
    });
    return std::move(film).image();
}

void forEachInParallel(int count, int threads, const std::function<void(int)> &work)
{
    const int cores = std::max(1, static_cast<int>(std::thread::hardware_concurrency()));
    const int wanted = std::min(count, threads > 0 ? threads : cores);
    std::atomic<int> next{0};
    const auto run = [&] {
        for (int i = next++; i < count; i = next++)
            work(i);
    };
    std::vector<std::thread> helpers;
    for (int i = 1; i < wanted; ++i)
        helpers.emplace_back(run);
    run();
    for (std::thread &helper : helpers)
        helper.join();
}

} // namespace makeshooting
