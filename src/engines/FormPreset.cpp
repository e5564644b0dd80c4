#include "engines/FormPreset.h"

#include <string>

#include "core/Conversions.h"
#include "core/DataForm.h"
#include "core/form/RuntimeError.h"
#include "director/Program.h"
#include "playlist/DataClass.h"
#include "windows/Main.h"

namespace yarvo {

namespace {

constexpr int kRecordRows = 11;
constexpr int kListedRecords = 30;
constexpr int kBands = 10;

std::string PresetFile() { return program().DataForm().ProgramPath("/eqpreset.ini"); }

}  // namespace

FormPreset::FormPreset() : Form("FormPreset") {
  Caption = "Load Equalizer Preset";
  Move(3000, 2500, 4200, 3300);
  ListaPreset.Move(120, 120, 2655, 2595);
  ValoriPreset.Move(120, 120, 2655, 2595);
  ValoriPreset.Visible = false;
  NumePreset.Move(120, 2790, 2655, 285);
  NumePreset.Visible = false;
  DelButton.Caption = "Delete";
  DelButton.Move(2880, 1080, 1140, 375);
  DelButton.Enabled = false;
  DelButton.Visible = false;
  Command1.Caption = "Ok";
  Command1.Move(2880, 120, 1140, 375);
  Command2.Caption = "Cancel";
  Command2.Move(2880, 600, 1140, 375);
  Load = [this] { FormPreset_Form_Load(); };
  ListaPreset.Click = [this] { ListaPreset_Click(); };
  Command1.Click = [this] { Command1_Click(); };
  Command2.Click = [this] { Command2_Click(); };
  DelButton.Click = [this] { DelButton_Click(); };
}

void FormPreset::FormPreset_Form_Load() {
  ResumeNext([this] { IncarcaData(PresetFile(), ValoriPreset); });
  int records = 0;
  for (int row = 0; row < ValoriPreset.ListCount() && records < kListedRecords;
       row += kRecordRows) {
    ResumeNext([&] {
      ValoriPreset.Selected(row);
      ListaPreset.AddItem(ValoriPreset.Text());
    });
    ++records;
  }
}

void FormPreset::ListaPreset_Click() {
  auto& main = program().Main();
  DelButton.Enabled = true;
  // The first row with the name: a name that equals a value row of an
  // earlier record finds that row, and the rows behind it are read.
  ValoriPreset.SetText(ListaPreset.Text());
  for (int i = 0; i < kBands; ++i) {
    ResumeNext([&] {
      ValoriPreset.SetListIndex(ValoriPreset.ListIndex() + 1);
      main.sldEQR(i).value = CInt(ValoriPreset.Text());
    });
  }
  main.UpdateEqualizer();
}

void FormPreset::Command1_Click() {
  if (NumePreset.Visible) {
    auto& main = program().Main();
    ValoriPreset.AddItem(NumePreset.Text);
    for (int i = 0; i < kBands; ++i) ValoriPreset.AddItem(Str(main.sldEQR(i).value));
    SalveazaData(PresetFile(), ValoriPreset);
  }
  program().UnloadFormPreset();
}

void FormPreset::Command2_Click() { program().UnloadFormPreset(); }

void FormPreset::DelButton_Click() {
  const std::string name = ListaPreset.Text();
  if (name.empty()) return;
  ValoriPreset.SetText(name);
  const int row = ValoriPreset.ListIndex();
  ResumeNext([this] { ListaPreset.RemoveItem(ListaPreset.ListIndex()); });
  for (int i = 0; i < kRecordRows; ++i) {
    ResumeNext([&] { ValoriPreset.RemoveItem(row); });
  }
  SalveazaData(PresetFile(), ValoriPreset);
}

void LoadPreset() {
  auto& dialog = program().FormPreset();
  dialog.Show();
  dialog.NumePreset.Visible = false;
}

void SavePreset() {
  auto& dialog = program().FormPreset();
  dialog.Show();
  dialog.NumePreset.Visible = true;
}

void DeletePreset() {
  auto& dialog = program().FormPreset();
  dialog.Show();
  dialog.DelButton.Visible = true;
}

}  // namespace yarvo
