#include "Hand.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <thread>

namespace yarvo::test {
namespace {

using namespace std::chrono_literals;

std::string At(int x, int y) { return std::to_string(x) + " " + std::to_string(y); }

}  // namespace

bool Hand::Available() { return std::system("command -v xdotool >/dev/null") == 0; }

void Hand::Xdo(const std::string& arguments) const {
  if (std::system(("DISPLAY=" + display_ + " xdotool " + arguments).c_str()) != 0)
    ADD_FAILURE() << "xdotool " << arguments;
}

void Hand::Click(int x, int y, const std::string& how) const {
  Xdo("mousemove " + At(x, y) + " " + how);
}

void Hand::Drag(int fromX, int fromY, int toX, int toY) const {
  Xdo("mousemove " + At(fromX, fromY) + " mousedown 1");
  for (int step = 1; step <= 8; ++step) {
    Xdo("mousemove " + At(fromX + (toX - fromX) * step / 8, fromY + (toY - fromY) * step / 8));
    std::this_thread::sleep_for(40ms);  // a drop target answers each step before the next
  }
  Xdo("mouseup 1");
  std::this_thread::sleep_for(300ms);
}

}  // namespace yarvo::test
