#include "DisplayFrame.h"

#include <array>
#include <cmath>
#include <numbers>

#include "Layout.h"
#include "SkinFolder.h"

namespace skingen {

namespace {

constexpr int kWidth = layout::kSpectrum.width();
constexpr int kHeight = layout::kSpectrum.height();
constexpr int kBins = 1024;

using Buffer = std::array<unsigned char, kWidth * kHeight>;

int Round(double v) { return static_cast<int>(std::nearbyint(v)); }

void Set(Buffer& b, int x, int row, int value) {
  if (x < 0 || x >= kWidth || row < 0 || row >= kHeight) return;
  b[static_cast<std::size_t>(row * kWidth + x)] = static_cast<unsigned char>(value);
}

// Magnitudes falling with frequency as music does, with a few strong
// partials and a deterministic ripple; `time` moves the picture on.
std::array<float, kBins> Fft(double time) {
  std::array<float, kBins> fft{};
  for (int i = 0; i < kBins; ++i) {
    const double f = i + 1.0;
    double level = 0.2 / std::pow(f, 1.05);
    level *= 1.0 + 0.45 * std::sin(f * 0.9 + time * 3.0) * std::cos(f * 0.23 + time);
    for (const double partial : {2.0, 5.0, 9.0, 16.0, 27.0, 44.0, 70.0}) {
      level += 0.5 / partial * std::exp(-std::pow((f - partial) / (1.0 + partial * 0.05), 2));
    }
    fft[static_cast<std::size_t>(i)] = static_cast<float>(level);
  }
  return fft;
}

void DrawColumns(Buffer& b, const std::array<float, kBins>& fft) {
  int prev = 0;
  for (int x = 0; x < 90; ++x) {
    int y = std::min(40, Round(std::sqrt(fft[static_cast<std::size_t>(x + 1)]) * 3 * 40 - 4));
    if (x != 0) {
      const int y1 = Round((y + prev) / 2.0) - 1;
      for (int row = y1; row >= 0; --row) Set(b, 2 * x - 1, row, row + 1);
    }
    prev = y;
    for (int row = y - 1; row >= 0; --row) Set(b, 2 * x, row, row + 1);
  }
}

void DrawBars(Buffer& b, const std::array<float, kBins>& fft) {
  int b0 = 0;
  for (int x = 0; x < 28; ++x) {
    int b1 = std::min(1023, Round(std::pow(2.0, x * 10.0 / 27)));
    if (b1 <= b0) b1 = b0 + 1;
    const int sc = 10 + b1 - b0;
    double sum = 0;
    for (int i = b0 + 1; i <= b1; ++i) sum += fft[static_cast<std::size_t>(i)];
    b0 = b1;
    const int y = std::min(40, Round(std::sqrt(sum / std::log10(sc)) * 1.7 * 40 - 4));
    for (int row = y - 1; row >= 0; --row) {
      for (int i = 0; i < 4; ++i) Set(b, 6 * x + i, row, row + 1);
    }
  }
}

void DrawSpectrogram(Buffer& b) {
  for (int pos = 0; pos < kWidth; ++pos) {
    const auto fft = Fft(pos * 0.05);
    for (int x = 0; x < 40; ++x) {
      const int y = std::min(127, Round(std::sqrt(fft[static_cast<std::size_t>(x + 1)]) * 3 * 127));
      Set(b, pos, x, 128 + y);
    }
  }
  for (int x = 0; x < 40; ++x) Set(b, 120, x, 255);
}

void DrawScope(Buffer& b) {
  for (int c = 0; c < 2; ++c) {
    const int value = c % 2 == 1 ? 127 : 1;
    int y = 0;
    for (int x = 0; x < kWidth; ++x) {
      const double t = x / 180.0 * 2 * std::numbers::pi;
      const double sample =
          0.55 * std::sin(3 * t + c * 0.6) + 0.22 * std::sin(11 * t + c) + 0.1 * std::sin(29 * t);
      const int v = std::clamp(Round((1 - sample) * 40 / 2), 0, 39);
      if (x == 0) y = v;
      do {
        y += (v > y) - (v < y);
        Set(b, x, y, value);
      } while (y != v);
    }
  }
}

// Entries from 128 up serve the spectrogram and are fixed by the player.
QColor HighEntry(int index) {
  const int a = (index - 128) % 32;
  const int up = 8 * a;
  switch ((index - 128) / 32) {
    case 0:
      return QColor(0, 0, up);
    case 1:
      return QColor(up, 0, 255);
    case 2:
      return QColor(255, up, 8 * (31 - a));
    default:
      return QColor(255, 255, up);
  }
}

}  // namespace

QImage DisplayFrame(const SkinFolder& skin, DisplayMode mode) {
  Buffer buffer{};
  switch (mode) {
    case DisplayMode::Columns:
      DrawColumns(buffer, Fft(0.4));
      break;
    case DisplayMode::Bars:
      DrawBars(buffer, Fft(0.4));
      break;
    case DisplayMode::Spectrogram:
      DrawSpectrogram(buffer);
      break;
    case DisplayMode::Scope:
      DrawScope(buffer);
      break;
  }
  QImage frame(kWidth, kHeight, QImage::Format_ARGB32_Premultiplied);
  for (int row = 0; row < kHeight; ++row) {
    for (int x = 0; x < kWidth; ++x) {
      const int index = buffer[static_cast<std::size_t>(row * kWidth + x)];
      const QColor c = index < 128 ? skin.Palette(index) : HighEntry(index);
      frame.setPixelColor(x, kHeight - 1 - row, c);
    }
  }
  return frame;
}

}  // namespace skingen
