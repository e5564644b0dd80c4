#include "windows/Snap.h"

#include <cstdlib>
#include <functional>
#include <vector>

#include "core/Conversions.h"
#include "core/DataForm.h"
#include "core/form/Form.h"
#include "core/form/RuntimeError.h"
#include "core/form/Twips.h"
#include "director/Program.h"
#include "platform/Desktop.h"
#include "playlist/MediaLibrary.h"
#include "playlist/Playlist.h"

namespace yarvo {

namespace {

constexpr int kReach = 15;

// What a hooked form had before: SnapForm puts its own handlers in their
// place, UnSnapForm puts these back.
struct Hook {
  Form* form;
  std::function<void()> enterSizeMove;
  std::function<void(ScreenRect&)> moving;
  std::function<void(ScreenRect&, int)> sizing;
};

struct SnapState {
  std::vector<Hook> hooks;
  // Built as a drag starts: the work area, then the other windows.
  std::vector<ScreenRect> targets;
};

SnapState& State() { return program().State<SnapState>(); }

ScreenRect RectOf(const Form& form) {
  const int left = form.Left / kTwipsPerPixel, top = form.Top / kTwipsPerPixel;
  return {left, top, left + form.Width / kTwipsPerPixel, top + form.Height / kTwipsPerPixel};
}

// The best catch on one axis so far: an edge of R may move onto an edge of
// T when it is nearer to it than to every catch before.
class Catch {
 public:
  bool Take(int edge, int to) {
    const int distance = std::abs(edge - to);
    if (distance >= best_) return false;
    best_ = distance;
    return true;
  }

 private:
  int best_ = kReach;
};

// Moves an edge of R onto `to`, its opposite edge along with it.
void Carry(Catch& axis, int& edge, int& opposite, int to) {
  if (!axis.Take(edge, to)) return;
  opposite += to - edge;
  edge = to;
}

// The spans of R and T across an axis meet, give or take the reach.
bool SpansMeet(int rFrom, int rTo, int tFrom, int tTo) {
  return rTo + kReach > tFrom && rFrom - kReach < tTo;
}

void BuildTargets(const Form& dragged) {
  auto& p = program();
  auto& targets = State().targets;
  targets.assign(1, p.desktop().WorkArea());
  for (const Form* form : p.LoadedForms()) {
    if (form == &dragged || !form->Visible || form->WindowState == WindowState::Minimized) continue;
    targets.push_back(RectOf(*form));
  }
}

// While the player window is active and dragged, the playlist and the
// library keep the offsets they had to it when it was activated.
void MoveFollowers(const Form& dragged, const ScreenRect& rect) {
  auto& p = program();
  auto& store = p.DataForm();
  if (store.Magnet != "1") return;
  auto& playlist = p.Playlist();
  auto& library = p.MediaLibrary();
  if (&dragged == &playlist || &dragged == &library) return;
  const int left = rect.left * kTwipsPerPixel, top = rect.top * kTwipsPerPixel;
  ResumeNext([&] { playlist.Left = CLng(Val(store.Sn1.get()) + left); });
  ResumeNext([&] { playlist.Top = CLng(Val(store.Sn2.get()) + top); });
  ResumeNext([&] { library.Left = CLng(Val(store.Sn3.get()) + left); });
  ResumeNext([&] { library.Top = CLng(Val(store.Sn4.get()) + top); });
}

}  // namespace

void SnapMove(ScreenRect& r, std::span<const ScreenRect> targets) {
  Catch x, y;
  for (std::size_t i = 0; i < targets.size(); ++i) {
    const ScreenRect& t = targets[i];
    const bool outside = i != 0;  // the work area holds from the inside only
    if (SpansMeet(r.top, r.bottom, t.top, t.bottom)) {
      Carry(x, r.left, r.right, t.left);
      if (outside) Carry(x, r.left, r.right, t.right);
      if (outside) Carry(x, r.right, r.left, t.left);
      Carry(x, r.right, r.left, t.right);
    }
    if (SpansMeet(r.left, r.right, t.left, t.right)) {
      Carry(y, r.top, r.bottom, t.top);
      if (outside) Carry(y, r.top, r.bottom, t.bottom);
      if (outside) Carry(y, r.bottom, r.top, t.top);
      Carry(y, r.bottom, r.top, t.bottom);
    }
  }
}

void SnapSize(ScreenRect& r, int edge, std::span<const ScreenRect> targets) {
  const bool leftSide = edge == 1 || edge == 4 || edge == 7;
  const bool topSide = edge == 3 || edge == 4 || edge == 5;
  int& vertical = leftSide ? r.left : r.right;
  int& horizontal = topSide ? r.top : r.bottom;
  const auto stick = [](Catch& axis, int& side, int to) {
    if (axis.Take(side, to)) side = to;
  };
  Catch x, y;
  for (std::size_t i = 0; i < targets.size(); ++i) {
    const ScreenRect& t = targets[i];
    const bool outside = i != 0;
    if (SpansMeet(r.top, r.bottom, t.top, t.bottom)) {
      if (leftSide || outside) stick(x, vertical, t.left);
      if (!leftSide || outside) stick(x, vertical, t.right);
    }
    if (SpansMeet(r.left, r.right, t.left, t.right)) {
      if (topSide || outside) stick(y, horizontal, t.top);
      if (!topSide || outside) stick(y, horizontal, t.bottom);
    }
  }
}

void SnapForm(Form& form) {
  auto& hooks = State().hooks;
  for (const Hook& hook : hooks)
    if (hook.form == &form) return;
  hooks.push_back({&form, form.EnterSizeMove, form.Moving, form.Sizing});
  form.EnterSizeMove = [&form] { BuildTargets(form); };
  form.Moving = [&form](ScreenRect& rect) {
    SnapMove(rect, State().targets);
    MoveFollowers(form, rect);
  };
  form.Sizing = [](ScreenRect& rect, int edge) { SnapSize(rect, edge, State().targets); };
}

void UnSnapForm(Form& form) {
  auto& hooks = State().hooks;
  for (auto it = hooks.begin(); it != hooks.end(); ++it) {
    if (it->form != &form) continue;
    form.EnterSizeMove = std::move(it->enterSizeMove);
    form.Moving = std::move(it->moving);
    form.Sizing = std::move(it->sizing);
    hooks.erase(it);
    return;
  }
}

void HoldDockedOffsets(const Form& player) {
  auto& p = program();
  auto& store = p.DataForm();
  const Form& playlist = p.Playlist();
  const Form& library = p.MediaLibrary();
  store.Sn1 = Str(double(playlist.Left - player.Left));
  store.Sn2 = Str(double(playlist.Top - player.Top));
  store.Sn3 = Str(double(library.Left - player.Left));
  store.Sn4 = Str(double(library.Top - player.Top));
  store.Magnet = "1";
}

}  // namespace yarvo
