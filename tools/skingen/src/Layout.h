#pragma once
// Where the player puts each picture and text, in pixels. The pieces are drawn
// so that they line up at these places, and the previews put them there.

#include <QPoint>
#include <QRect>
#include <QSize>

namespace skingen::layout {

// Windows.
constexpr int kMainWidth = 406;
constexpr int kFullHeight = 235;
constexpr int kSmallHeight = 133;
constexpr int kMiniWidth = 407;
constexpr int kMiniHeight = 99;
// The window mask rounds every corner with this radius.
constexpr int kCornerRadius = 9;

// Frame pieces: corners, and the strips the windows stretch.
constexpr QSize kTopCorner{100, 19};
constexpr QSize kTopStrip{246, 19};
constexpr QSize kSideStrip{11, 245};
constexpr QSize kBottomCorner{100, 11};
constexpr QSize kBottomStrip{246, 11};
constexpr int kTitleHeight = 19;
constexpr int kSideTop = 19;      // the left edge starts below the title bar
constexpr int kRightTopMain = 8;  // the main window's right edge starts higher, under the corner
constexpr int kBottomInset = 12;  // the bottom row stands at H - 12, the right edge at W - 12

// Title bar.
constexpr QSize kMenuPlate{57, 17};
constexpr QRect kMenuFile{16, 0, 49, 17};
constexpr QRect kMenuOptions{72, 0, 57, 17};
constexpr QRect kMenuHelp{136, 0, 57, 17};
constexpr QRect kMenuFileLabel{24, 0, 25, 17};  // the captions, left aligned
constexpr QRect kMenuOptionsLabel{80, 0, 41, 17};
constexpr QRect kMenuHelpLabel{144, 0, 41, 17};
constexpr QSize kTitleButton{22, 17};
constexpr int kMinimizeFromRight = 77;
constexpr int kCloseFromRight = 50;
constexpr QRect kVideoTitle{199, 2, 121, 13};

// Main panel, main.jpg, and what stands on it (panel coordinates).
constexpr QPoint kPanelOrigin{8, 24};
constexpr QSize kPanel{313, 193};
constexpr int kSmallPanelHeight = 87;
constexpr QRect kClock{16, 5, 65, 17};
constexpr QRect kTotalTime{89, 7, 33, 14};
constexpr QRect kStatus{8, 30, 61, 17};
constexpr QRect kBitRate{72, 30, 54, 13};
constexpr QRect kTitle{136, 8, 169, 17};
constexpr QRect kTagLine{136, 32, 169, 16};
constexpr QRect kVisual{136, 48, 169, 41};
constexpr QSize kSmallButton{41, 17};
// Buttons 5, 4, 2 and 3 stand on the panel; 1 and 6 are never shown.
constexpr QPoint kButton5{8, 56};
constexpr QPoint kButton4{64, 56};
constexpr QPoint kButton2{8, 72};
constexpr QPoint kButton3{64, 72};
constexpr QRect kInfoCaption{8, 95, 97, 17};
constexpr int kFactsTop[4] = {111, 123, 136, 151};
constexpr int kFactHeight = 13;
constexpr int kFactWidth = 97;
constexpr QSize kEqSlider{14, 81};
constexpr int kEqTop = 96;
constexpr int kReverbX = 112;
constexpr int kFirstBandX = 144;
constexpr int kBandStep = 16;
constexpr int kBands = 10;

// Right column (window coordinates from the right edge) and the bottom row.
constexpr int kRightColumnFromRight = 80;
constexpr int kRightColumnTop = 24;
constexpr QSize kRightColumn{73, 153};
constexpr int kSmallRightColumnHeight = 84;
constexpr QPoint kTransportInColumn{4, 8};
constexpr QSize kLabelPlate{73, 16};
constexpr QPoint kInfoPlate{0, 80};
constexpr QPoint kPlaylistPlate{0, 96};
constexpr QSize kLogo{73, 39};
constexpr int kLogoFromRight = 73;
constexpr int kLogoFromBottom = 43;
constexpr QRect kSeekBar{8, -21, 209, 17};     // y from the bottom
constexpr QRect kVolumeBar{232, -21, 93, 17};  // y from the bottom
constexpr QPoint kSpeaker{216, -18};           // y from the bottom
constexpr QSize kSpeakerSize{13, 11};
constexpr int kGripFromCorner = 13;

// Transport plate: the picture is 66x64, the control shows 65x62 of it.
// The player puts each hover and pressed picture at its fixed top left
// corner and draws it at its own size: the sizes are ours, chosen so that
// previous and next, whose corners sit high, reach down to play's centre.
constexpr QSize kTransport{66, 64};
constexpr QSize kTransportShown{65, 62};
constexpr QRect kPause{14, 0, 34, 13};
constexpr QRect kBack{0, 12, 16, 32};
constexpr QRect kPlay{17, 16, 32, 29};
constexpr QRect kNext{51, 12, 15, 32};
constexpr QRect kStop{16, 48, 33, 14};

// Sliders.
constexpr QSize kHTrackTile{8, 17};
constexpr QSize kHEnd{7, 17};
constexpr QSize kHThumb{13, 17};
constexpr QSize kVTrackTile{14, 8};
constexpr QSize kVEnd{14, 7};
constexpr QSize kVThumb{14, 11};
constexpr QSize kListThumb{14, 24};

// Visualisation: the picture the engine draws and the idle picture.
constexpr QSize kSpectrum{180, 40};
constexpr QSize kIdle{169, 41};

// Mini window (window coordinates).
constexpr QPoint kMiniPanelOrigin{128, 24};
constexpr QSize kMiniPanel{193, 49};
constexpr QRect kMiniClock{144, 32, 49, 17};
constexpr QRect kMiniTotalTime{209, 32, 33, 14};
constexpr QRect kMiniStatus{256, 32, 61, 17};
constexpr QRect kMiniTitle{136, 54, 185, 17};
constexpr QRect kMiniVisual{5, 27, 121, 41};
constexpr QPoint kMiniTransport{333, 23};
constexpr QRect kMiniVolumeBar{24, 72, 97, 17};
constexpr QRect kMiniSeekBar{128, 72, 201, 17};
constexpr QPoint kMiniSpeaker{8, 80};

// Playlist window at its smallest.
constexpr int kPlaylistWidth = 266;
constexpr int kPlaylistHeight = 302;
constexpr int kPlaylistCloseFromRight = 55;

// Icons.
constexpr int kMenuIcon = 16;
constexpr int kAppIconSizes[] = {16, 22, 24, 32, 48, 64, 128, 256};
constexpr int kMenuIconNumbers[] = {1,  2,  4,  5,  6,  7,  8,  10, 11, 12, 13, 14,
                                    16, 17, 18, 19, 20, 21, 23, 24, 25, 26, 27, 28};

}  // namespace skingen::layout
