#include "playlist/ClsPl.h"

#include <exception>

#include "core/Conversions.h"
#include "core/DataForm.h"
#include "core/form/RuntimeError.h"
#include "director/Program.h"
#include "platform/Desktop.h"
#include "playlist/DataClass.h"
#include "playlist/JumpForm.h"
#include "playlist/Playlist.h"
#include "settings/Options.h"
#include "windows/Main.h"

namespace yarvo {

namespace {

// These helpers report their own run-time errors: the error's description in
// a message box titled " Error".
template <class Body>
auto Reported(Body&& body) -> decltype(body()) {
  try {
    return body();
  } catch (const std::exception& error) {
    program().desktop().MsgBox(error.what(), " Error");
    return decltype(body())();
  }
}

}  // namespace

std::string ShowFileDialog() {
  OpenFileRequest request;
  request.title = "Open file";
  request.defaultExtension = "mp3";
  if (program().Options().Check4.Value == 1) {
    request.filterDescription =
        "Media "
        "(*.mp3);(*.wav);(*.mpg);(*.avi);(*.mov);(*.wmv);(*.wma);(*.mpv);(*.mpe);(*.mp4);(*.mpa);"
        "(*.qt);(*.ogm);(*.snd);(*rmi);(*.divx);(*.mpeg);(*.cda);(*.mp2);(*.mp1);(*.mid);(*.midi);("
        "*.asf);"
        "(*.VOB);(*.dat);(*.flv);(*.M2V);(*.3gp)";
    request.filterPattern =
        "*.mp3;*.wav;*.mpg;*.avi;*.mov;*.wmv;*.mpv;*.mpe;*.mpa;*.qt;*.ogm;*.snd;*rmi;*.divx;*.wma;*"
        ".mpeg;"
        "*.cda;*.mp2;*.mp1;*.mid;*.midi;*.vob;*.dat;*.mp4;*.asf;*.flv;*.M2V;*.3gp;";
  } else {
    request.filterDescription = "Media (*.*);";
    request.filterPattern = "*.*";
  }
  return program().desktop().GetOpenFileName(request);
}

std::string GetLastBackSlash(const std::string& text) {
  return Reported([&] {
    const auto slash = text.rfind('/');
    return slash == std::string::npos ? text : text.substr(slash + 1);
  });
}

std::string LeftOfLast(const std::string& text, const std::string& separator) {
  return Reported([&] {
    const auto at = text.rfind(separator);
    return at == std::string::npos ? std::string() : text.substr(0, at);
  });
}

std::string TitleOf(const std::string& path) { return LeftOfLast(GetLastBackSlash(path), "."); }

void ListNoChar(StringList& List1, StringList& List2) {
  Reported([&] {
    for (int i = 0; i < List2.ListCount(); ++i) {
      List2.Selected(i);
      List1.AddItem(TitleOf(List2.Text()));
    }
  });
}

void ListNoCharDragDrop(StringList& List1, StringList& List2) {
  Reported([&] {
    for (int i = 0; i < List2.ListCount(); ++i) {
      List2.Selected(i);
      const int at = CInt(program().DataForm().AddToIndex.get());
      List1.AddItem(TitleOf(List2.Text()), at < 0 ? 0 : at);
    }
  });
}

void ExtractFilename(const std::string& /*FileName*/, const std::string& FullPath) {
  Reported([&] {
    auto& main = program().Main();
    const std::string title = TitleOf(FullPath);
    main.Titlu.Caption = title;
    main.PiesaCurenta.Caption = title;
  });
}

void StergeFisier() {
  auto& p = program();
  auto& picList = p.Playlist().PicList;
  auto& paths = p.DataForm().ListaCale;
  ResumeNext([&] {
    const int row = picList.ListIndex();
    if (row < 0) return;
    // The removed title stays in the jump list until its next refresh.
    p.JumpForm().Lista.SetText(picList.Text());
    paths.Selected(row);
    picList.RemoveItem(picList.ListIndex());
    paths.RemoveItem(paths.ListIndex());
  });
}

void SetJumpList() {
  auto& p = program();
  auto& lista = p.JumpForm().Lista;
  const std::string file = p.DataForm().ProgramPath("/Data/playlist.data");
  ResumeNext([&] { lista.Clear(); });
  // The file is only the way across: it is written again at every refresh.
  ResumeNext([&] { SalveazaData(file, p.Playlist().PicList, Durability::Cache); });
  ResumeNext([&] { IncarcaData(file, lista); });
}

}  // namespace yarvo
