#pragma once
// A person's hand on an X server, through xdotool: the pointer moves,
// clicks, drags at a hand's pace, and keys.

#include <string>

namespace yarvo::test {

class Hand {
 public:
  explicit Hand(std::string display) : display_(std::move(display)) {}

  // Whether xdotool is installed.
  static bool Available();

  // Runs xdotool with `arguments`; a failure fails the test.
  void Xdo(const std::string& arguments) const;
  // `how` is what xdotool does there: one left click unless told.
  void Click(int x, int y, const std::string& how = "click 1") const;
  void DoubleClick(int x, int y) const { Click(x, y, "click --repeat 2 --delay 80 1"); }
  // Presses the left button at one point, moves in eight steps to the other
  // and lets go there.
  void Drag(int fromX, int fromY, int toX, int toY) const;

 private:
  std::string display_;
};

}  // namespace yarvo::test
