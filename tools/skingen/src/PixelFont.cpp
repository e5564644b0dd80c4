#include "PixelFont.h"

#include <cmath>

namespace skingen {

namespace {

struct Glyph {
  char ch;
  const char* rows[kPixelGlyphHeight];
};

// Rows from the top, '#' for ink.
constexpr Glyph kGlyphs[] = {
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
constexpr int kGlyphWidth = 3;

const Glyph* Find(QChar c) {
  for (const Glyph& g : kGlyphs) {
    if (QChar(QLatin1Char(g.ch)) == c.toUpper()) return &g;
  }
  return nullptr;
}

}  // namespace

int PixelTextWidth(const QString& text, int spacing) {
  if (text.isEmpty()) return 0;
  return static_cast<int>(text.size()) * (kGlyphWidth + spacing) - spacing;
}

void DrawPixelText(QPainter& p, int x, int y, const QString& text, const QColor& colour,
                   int spacing) {
  for (const QChar c : text) {
    if (const Glyph* g = Find(c)) {
      for (int row = 0; row < kPixelGlyphHeight; ++row) {
        for (int col = 0; col < kGlyphWidth; ++col) {
          if (g->rows[row][col] == '#') p.fillRect(QRect(x + col, y + row, 1, 1), colour);
        }
      }
    }
    x += kGlyphWidth + spacing;
  }
}

void DrawPixelTextCentred(QPainter& p, double centreX, int y, const QString& text,
                          const QColor& colour, int spacing) {
  const int left =
      static_cast<int>(std::floor(centreX - PixelTextWidth(text, spacing) / 2.0 + 0.5));
  DrawPixelText(p, left, y, text, colour, spacing);
}

}  // namespace skingen
