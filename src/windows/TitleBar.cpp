#include "windows/TitleBar.h"

#include "core/DataForm.h"
#include "core/form/RuntimeError.h"
#include "director/Program.h"

namespace yarvo {

void Put(PictureBox& box, const Property<Picture>& picture) {
  ResumeNext([&] { box.Picture = picture.get(); });
}

void LightMenuPlate(const TitleBar& bar, int plate) {
  auto& store = program().DataForm();
  for (int i = 0; i < 3; ++i)
    Put(*bar.plates[static_cast<std::size_t>(i)],
        i == plate ? store.MeniuHover : store.MeniuNormal);
}

void OnHover(Control& control, std::function<void()> look) {
  control.MouseMove = [look = std::move(look)](const MouseEvent&) { look(); };
}

void BindTitleBarHover(const TitleBar& bar, const std::function<void(int plate)>& hoverPlate) {
  auto& store = program().DataForm();
  for (std::size_t i = 0; i < 3; ++i) {
    const int plate = static_cast<int>(i);
    OnHover(*bar.plates[i], [hoverPlate, plate] { hoverPlate(plate); });
    OnHover(*bar.captions[i], [hoverPlate, plate] { hoverPlate(plate); });
  }
  OnHover(bar.minimize, [bar, &store] {
    Put(bar.minimize, store.MinimizeFocus);
    Put(bar.close, store.CloseNormal);
  });
  OnHover(bar.close, [bar, &store] {
    Put(bar.close, store.CloseFocus);
    Put(bar.minimize, store.MinimizeNormal);
  });
}

}  // namespace yarvo
