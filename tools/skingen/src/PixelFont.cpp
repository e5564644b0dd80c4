#include "PixelFont.h"

#include <cmath>
#include <cstring>
#include <span>

namespace skingen {

namespace {

constexpr int kMaxRows = 7;

// Rows from the top, '#' for ink; a glyph is as wide as its rows.
struct Glyph {
  char ch;
  const char* rows[kMaxRows];
};

constexpr Glyph kSmall[] = {
    {'0', {"###", "#.#", "#.#", "#.#", "###"}}, {'1', {".#.", "##.", ".#.", ".#.", "###"}},
    {'2', {"###", "..#", "###", "#..", "###"}}, {'3', {"###", "..#", ".##", "..#", "###"}},
    {'4', {"#.#", "#.#", "###", "..#", "..#"}}, {'5', {"###", "#..", "###", "..#", "###"}},
    {'6', {"###", "#..", "###", "#.#", "###"}}, {'7', {"###", "..#", ".#.", ".#.", ".#."}},
    {'8', {"###", "#.#", "###", "#.#", "###"}}, {'9', {"###", "#.#", "###", "..#", "###"}},
    {'A', {".#.", "#.#", "###", "#.#", "#.#"}}, {'B', {"##.", "#.#", "##.", "#.#", "##."}},
    {'C', {".##", "#..", "#..", "#..", ".##"}}, {'D', {"##.", "#.#", "#.#", "#.#", "##."}},
    {'E', {"###", "#..", "##.", "#..", "###"}}, {'F', {"###", "#..", "##.", "#..", "#.."}},
    {'G', {".##", "#..", "#.#", "#.#", ".##"}}, {'H', {"#.#", "#.#", "###", "#.#", "#.#"}},
    {'I', {"###", ".#.", ".#.", ".#.", "###"}}, {'J', {"..#", "..#", "..#", "#.#", ".#."}},
    {'K', {"#.#", "#.#", "##.", "#.#", "#.#"}}, {'L', {"#..", "#..", "#..", "#..", "###"}},
    {'M', {"#.#", "###", "###", "#.#", "#.#"}}, {'N', {"##.", "#.#", "#.#", "#.#", "#.#"}},
    {'O', {".#.", "#.#", "#.#", "#.#", ".#."}}, {'P', {"##.", "#.#", "##.", "#..", "#.."}},
    {'Q', {".#.", "#.#", "#.#", "##.", ".##"}}, {'R', {"##.", "#.#", "##.", "#.#", "#.#"}},
    {'S', {".##", "#..", ".#.", "..#", "##."}}, {'T', {"###", ".#.", ".#.", ".#.", ".#."}},
    {'U', {"#.#", "#.#", "#.#", "#.#", "###"}}, {'V', {"#.#", "#.#", "#.#", "#.#", ".#."}},
    {'W', {"#.#", "#.#", "###", "###", "#.#"}}, {'X', {"#.#", "#.#", ".#.", "#.#", "#.#"}},
    {'Y', {"#.#", "#.#", ".#.", ".#.", ".#."}}, {'Z', {"###", "..#", ".#.", "#..", "###"}},
    {'+', {"...", ".#.", "###", ".#.", "..."}}, {'-', {"...", "...", "###", "...", "..."}},
    {' ', {"...", "...", "...", "...", "..."}},
};

// Narrow capitals, so that "PRESETS" and a mark beside it fit a 41 px plate.
constexpr Glyph kCapitals[] = {
    {'A', {".#.", "#.#", "#.#", "#.#", "###", "#.#", "#.#"}},
    {'D', {"##.", "#.#", "#.#", "#.#", "#.#", "#.#", "##."}},
    {'E', {"###", "#..", "#..", "##.", "#..", "#..", "###"}},
    {'I', {"#", "#", "#", "#", "#", "#", "#"}},
    {'L', {"#..", "#..", "#..", "#..", "#..", "#..", "###"}},
    {'M', {"#...#", "##.##", "#.#.#", "#.#.#", "#...#", "#...#", "#...#"}},
    {'P', {"##.", "#.#", "#.#", "##.", "#..", "#..", "#.."}},
    {'Q', {".##.", "#..#", "#..#", "#..#", "#..#", "#.#.", ".#.#"}},
    {'R', {"##.", "#.#", "#.#", "##.", "#.#", "#.#", "#.#"}},
    {'S', {".##", "#..", "#..", ".#.", "..#", "..#", "##."}},
    {'T', {"###", ".#.", ".#.", ".#.", ".#.", ".#.", ".#."}},
    {'U', {"#.#", "#.#", "#.#", "#.#", "#.#", "#.#", "###"}},
    {'V', {"#.#", "#.#", "#.#", "#.#", "#.#", ".#.", ".#."}},
    {' ', {"...", "...", "...", "...", "...", "...", "..."}},
};

std::span<const Glyph> Glyphs(PixelFace face) {
  if (face == PixelFace::Capitals) return kCapitals;
  return kSmall;
}

const Glyph* Find(QChar c, PixelFace face) {
  for (const Glyph& g : Glyphs(face)) {
    if (QChar(QLatin1Char(g.ch)) == c.toUpper()) return &g;
  }
  return nullptr;
}

int GlyphWidth(const Glyph* g) { return g ? static_cast<int>(std::strlen(g->rows[0])) : 3; }

}  // namespace

int PixelFaceHeight(PixelFace face) { return face == PixelFace::Capitals ? 7 : 5; }

int PixelTextWidth(const QString& text, int spacing, PixelFace face) {
  int width = 0;
  for (const QChar c : text) width += GlyphWidth(Find(c, face)) + spacing;
  return text.isEmpty() ? 0 : width - spacing;
}

void DrawPixelText(QPainter& p, int x, int y, const QString& text, const QColor& colour,
                   int spacing, PixelFace face) {
  const int height = PixelFaceHeight(face);
  for (const QChar c : text) {
    const Glyph* g = Find(c, face);
    const int width = GlyphWidth(g);
    for (int row = 0; g && row < height; ++row) {
      for (int col = 0; col < width; ++col) {
        if (g->rows[row][col] == '#') p.fillRect(QRect(x + col, y + row, 1, 1), colour);
      }
    }
    x += width + spacing;
  }
}

void DrawPixelTextCentred(QPainter& p, double centreX, int y, const QString& text,
                          const QColor& colour, int spacing, PixelFace face) {
  const int left =
      static_cast<int>(std::floor(centreX - PixelTextWidth(text, spacing, face) / 2.0 + 0.5));
  DrawPixelText(p, left, y, text, colour, spacing, face);
}

}  // namespace skingen
