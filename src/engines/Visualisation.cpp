#include "engines/Visualisation.h"

#include <algorithm>
#include <cmath>
#include <memory>

#include "core/Conversions.h"
#include "core/DataForm.h"
#include "core/form/RuntimeError.h"
#include "core/form/StringList.h"
#include "director/Program.h"
#include "engines/BassApi.h"
#include "engines/frmBass.h"
#include "settings/Options.h"
#include "windows/Main.h"
#include "windows/MiniForm.h"

namespace yarvo {

namespace {

constexpr std::size_t kFftBins = 1024;
constexpr int kModeBars = 1;
constexpr int kModeSpectrogram = 2;
constexpr int kModeScope = 3;

// Half to even, as every rounding of the program's numbers; far beyond the
// picture's range (or not a number) counts as the nearest end of it.
int Round(double value) {
  if (!(value > -1e6)) return -1000000;
  return static_cast<int>(std::nearbyint(std::min(value, 1e6)));
}

std::uint8_t ToByte(double value) {
  const double rounded = std::nearbyint(value);
  if (!(rounded >= 0 && rounded <= 255)) throw err::Overflow();
  return static_cast<std::uint8_t>(rounded);
}

void SetPixel(SpectrumState& s, int x, int row, int value) {
  s.specBuf[static_cast<std::size_t>(row * kSpecWidth + x)] = static_cast<std::uint8_t>(value);
}

void Clear(SpectrumState& s) { s.specBuf.fill(0); }

// The magnitudes of the spectrum; all zero when the channel gives none.
std::array<float, kFftBins> ReadFft(BassApi& bass, DWORD channel) {
  std::array<float, kFftBins> fft{};
  if (bass.BASS_ChannelGetData(channel, fft.data(), BASS_DATA_FFT2048) == static_cast<DWORD>(-1)) {
    fft.fill(0.0f);
  }
  return fft;
}

// Height of a column, -4 to 40 rows.
int Height(double root, double scale) { return std::min(Round(root * scale * 40 - 4), 40); }

void DrawColumns(SpectrumState& s, const std::array<float, kFftBins>& fft) {
  Clear(s);
  int prev = 0;
  for (int x = 0; x < 90; ++x) {
    const int y = Height(std::sqrt(fft[static_cast<std::size_t>(x + 1)]), 3);
    if (x != 0) {
      // A column between two, at their mean height, smooths the picture.
      const int y1 = Round((y + prev) / 2.0) - 1;
      for (int row = y1; row >= 0; --row) SetPixel(s, 2 * x - 1, row, row + 1);
    }
    prev = y;
    for (int row = y - 1; row >= 0; --row) SetPixel(s, 2 * x, row, row + 1);
  }
}

void DrawBars(SpectrumState& s, const std::array<float, kFftBins>& fft) {
  Clear(s);
  int b0 = 0;
  for (int x = 0; x < 28; ++x) {
    // Bar x ends at bin 2^(x * 10 / 27), and holds at least one bin.
    int b1 = std::min(Round(std::pow(2.0, x * 10.0 / 27.0)), 1023);
    if (b1 <= b0) b1 = b0 + 1;
    const int sc = 10 + b1 - b0;
    double sum = 0;
    for (int bin = b0 + 1; bin <= b1; ++bin)
      sum += static_cast<double>(fft[static_cast<std::size_t>(bin)]);
    b0 = b1;
    const int y = Height(std::sqrt(sum / std::log10(sc)), 1.7);
    for (int row = y - 1; row >= 0; --row) {
      std::fill_n(s.specBuf.begin() + row * kSpecWidth + 6 * x, 4,
                  static_cast<std::uint8_t>(row + 1));
    }
  }
}

void DrawSpectrogram(SpectrumState& s, const std::array<float, kFftBins>& fft) {
  const int column = s.specPos;
  for (int x = 0; x < kSpecHeight; ++x) {
    const int y = std::min(Round(std::sqrt(fft[static_cast<std::size_t>(x + 1)]) * 3 * 127), 127);
    SetPixel(s, column, x, 128 + y);
  }
  s.specPos = (s.specPos + 1) % kSpecWidth;
  // The marker of the column written next.
  for (int x = 0; x < kSpecHeight; ++x) SetPixel(s, s.specPos, x, 255);
}

void DrawScope(SpectrumState& s, BassApi& bass, DWORD channel) {
  Clear(s);
  BASS_CHANNELINFO info{};
  bass.BASS_ChannelGetInfo(channel, &info);
  const int n = static_cast<int>(std::min<DWORD>(info.chans, 32));
  s.samples.assign(static_cast<std::size_t>(n * kSpecWidth), 0.0f);
  const auto bytes = static_cast<DWORD>(s.samples.size() * sizeof(float));
  if (bass.BASS_ChannelGetData(channel, s.samples.data(), bytes | BASS_DATA_FLOAT) ==
      static_cast<DWORD>(-1)) {
    std::fill(s.samples.begin(), s.samples.end(), 0.0f);
  }
  for (int c = 0; c < n; ++c) {
    const int value = c % 2 == 1 ? 127 : 1;
    int y = 0;
    for (int x = 0; x < kSpecWidth; ++x) {
      const float sample = s.samples[static_cast<std::size_t>(x * n + c)];
      const int v = std::clamp(Round((1 - static_cast<double>(sample)) * 40 / 2), 0, 39);
      if (x == 0) y = v;
      // Steps row by row to the new height, so the wave is one connected line.
      do {
        y += (v > y) - (v < y);
        SetPixel(s, x, y, value);
      } while (y != v);
    }
  }
}

}  // namespace

SpectrumState& modSpectrum() { return program().State<SpectrumState>(); }

void BuildSpectrumPalette(SpectrumState& state, StringList& skinValues) {
  auto row = [&](int index) {
    skinValues.Selected(index);
    return CDbl(skinValues.Text());
  };
  auto& p = state.palette;
  ResumeNext([&] { p[0].red = ToByte(row(7)); });
  ResumeNext([&] { p[0].green = ToByte(row(8)); });
  ResumeNext([&] { p[0].blue = ToByte(row(9)); });
  for (int a = 1; a <= 127; ++a) {
    auto& entry = p[static_cast<std::size_t>(a)];
    entry.red = static_cast<std::uint8_t>(255 - 2 * a);
    ResumeNext([&] { entry.green = ToByte(a * row(11)); });
    ResumeNext([&] { entry.blue = ToByte(a * row(12)); });
  }
  for (int a = 0; a < 32; ++a) {
    const auto up = static_cast<std::uint8_t>(8 * a);
    const auto down = static_cast<std::uint8_t>(8 * (31 - a));
    p[static_cast<std::size_t>(128 + a)] = {0, 0, up};
    p[static_cast<std::size_t>(160 + a)] = {up, 0, 255};
    p[static_cast<std::size_t>(192 + a)] = {255, up, down};
    p[static_cast<std::size_t>(224 + a)] = {255, 255, up};
  }
}

void SetUpSpectrum() {
  auto& p = program();
  auto& state = modSpectrum();
  auto& options = p.Options();
  state.specPos = 0;
  state.parked = false;
  if (options.Option8.Value) state.specMode = kModeBars;
  if (options.Option9.Value) state.specMode = 0;
  if (options.Option10.Value) state.specMode = kModeSpectrogram;
  BuildSpectrumPalette(state, p.DataForm().SkinValues);
}

void DrawSpectrum(SpectrumState& state, BassApi& bass, DWORD channel) {
  if (state.specMode == kModeScope) {
    DrawScope(state, bass, channel);
    return;
  }
  const auto fft = ReadFft(bass, channel);
  switch (state.specMode) {
    case kModeBars:
      DrawBars(state, fft);
      break;
    case kModeSpectrogram:
      DrawSpectrogram(state, fft);
      break;
    default:
      DrawColumns(state, fft);
      break;
  }
}

namespace {

std::uint32_t Rgb(const PaletteEntry& c) {
  return std::uint32_t{c.red} << 16 | std::uint32_t{c.green} << 8 | c.blue;
}

bool Shows(const IndexedImage& frame, const SpectrumState& state) {
  const auto pixels = state.specBuf.begin();
  return frame.width == kSpecWidth && frame.height == kSpecHeight &&
         std::equal(frame.pixels.begin(), frame.pixels.end(), pixels,
                    pixels + kSpecWidth * kSpecHeight) &&
         std::equal(
             frame.palette.begin(), frame.palette.end(), state.palette.begin(),
             [](std::uint32_t shown, const PaletteEntry& entry) { return shown == Rgb(entry); });
}

}  // namespace

std::shared_ptr<const IndexedImage> SpectrumFrame(const SpectrumState& state) {
  auto frame = std::make_shared<IndexedImage>();
  frame->width = kSpecWidth;
  frame->height = kSpecHeight;
  frame->pixels.assign(state.specBuf.begin(), state.specBuf.begin() + kSpecWidth * kSpecHeight);
  std::transform(state.palette.begin(), state.palette.end(), frame->palette.begin(), Rgb);
  return frame;
}

void UpdateSpectrum() {
  auto& p = program();
  auto& state = modSpectrum();
  ResumeNext([&] {
    const auto channel = static_cast<DWORD>(CLng(p.frmBass().Chan.get()));
    DrawSpectrum(state, p.bass(), channel);
  });
  ResumeNext([&] {
    auto& surface =
        p.DataForm().MiniMode == "True" ? p.MiniForm().Visualisation : p.Main().Visualisation;
    // A frame like the one shown is not handed on, so nothing is repainted
    // for it: silence, or a song's quiet end, draws nothing new.
    if (const auto& shown = surface.Drawing.get(); shown && Shows(*shown, state)) return;
    surface.Drawing = SpectrumFrame(state);
  });
}

bool SpectrumSurfaceSeen() {
  auto& p = program();
  const bool mini = p.DataForm().MiniMode == "True";
  const Form* window = mini ? static_cast<const Form*>(p.LoadedMiniForm()) : &p.Main();
  if (!window || !window->Visible || window->WindowState == WindowState::Minimized) return false;
  return mini ? p.LoadedMiniForm()->Visualisation.Shown() : p.Main().Visualisation.Shown();
}

void ResumeParkedSpectrum() {
  auto& p = program();
  auto& state = modSpectrum();
  if (!state.parked || !SpectrumSurfaceSeen() || p.frmBass().BassON != "True" ||
      !p.frmBass().ChannelSounds())
    return;
  state.parked = false;
  p.frmBass().tmrSpectrum.Enabled = true;
}

}  // namespace yarvo
