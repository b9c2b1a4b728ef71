// The graph panel: the drawing of a problem with two decision variables, its cross and its level line, the
// values beside them, and the buttons. It lies above the grid and can be moved by its handle.
//
//   GraphPanel panel({surface, model, txtFocus, messages});
//   panel.mnu_Grafiek_Click();        // opens it
//   panel.rebuild();                  // after a command
#pragma once

#include <string>

#include "control/basSafeCtl.h"
#include "control/basSafeCtl_views.h"
#include "graph/geometry.h"
#include "platform/surface.h"

namespace tabulon {

class GraphPanel : public GraphView {
 public:
  struct Surroundings {
    platform::Surface& surface;
    basSafeCtl& model;
    platform::Control& txtFocus;  // where the focus rests
    FailureView& failures;
  };

  explicit GraphPanel(const Surroundings& around);

  // ---- Opening and closing
  bool is_open() const { return open_; }
  // There is a graph for two decision variables alone.
  bool is_offered() const { return around_.model.NrBeslisVar == 2; }
  void mnu_Grafiek_Click();
  void rebuild() override;
  void problem_changed() override;
  void numbers_rewritten() override;
  // For another problem.
  void close();

  // ---- What happens on its controls. Each tells whether the event was the panel's.
  platform::Task<bool> clicked(platform::Control& control);
  platform::Task<> pointer_moved(platform::Control& control, platform::Pointer pointer);
  // The arrow keys move the cross where the picture has the focus, the panel where the handle has it.
  bool key_pressed(platform::KeyPress press);
  // One of the buttons that the focus stays on when the control is clicked.
  bool keeps_focus(const platform::Control* control) const;

 private:
  // ---- graph/panel_layout.cpp
  void lay_out();

  // ---- Drawing
  void show(bool open);
  void hide_point();
  void draw();
  bool draw_problem();
  std::int16_t number_mode() const;
  void place_cross(platform::Point place);
  void show_point(graph::PlanePoint point);
  void name_point();

  // ---- Moving
  void grab(platform::Pointer pointer, platform::Twips height);
  void let_go();
  void cmdFrame_MouseMove(platform::Pointer pointer);
  void imgCross_MouseMove(platform::Pointer pointer);
  void move_panel(platform::Twips right, platform::Twips down);
  void move_cross(platform::Point place);
  platform::Point cross_place() const { return {imgCross.bounds().left, imgCross.bounds().top}; }

  // ---- Clicks
  platform::Task<bool> PictureLN_Click(const platform::Control& control);
  platform::Task<> cmdKopieren_Click();

  Surroundings around_;
  bool open_ = false;                     // the mark of mnu_Grafiek
  double m_dblMaxX1 = 0, m_dblMaxX2 = 0;  // where the axes end; always the same
  std::string m_strMaxX1, m_strMaxX2;     // and what stands there
  graph::PlanePoint shown_point_;
  bool m_blnGrafiek = false;      // it has been shown; kept for who looks at the control, nothing reads it
  std::int32_t m_lngGrabX = 0;    // where a drag began, on the control that was pressed
  std::int32_t m_lngGrabY = 500;  // 500 when there is none

  // ---- The controls, in drawing order
  platform::Frame frmGrafiek{around_.surface, "frmGrafiek"};
  platform::PictureBox PictureLN{around_.surface, "PictureLN", &frmGrafiek};
  platform::Line lineNiveau{around_.surface, "lineNiveau", 0, &PictureLN};
  platform::Image imgCross{around_.surface, "imgCross", 0, &PictureLN};
  platform::Line lineRestricties{around_.surface, "lineRestricties", 0, &frmGrafiek};
  platform::Label lblRestricties{around_.surface, "lblRestricties", 0, &frmGrafiek};
  platform::Line lineNiveaulijn{around_.surface, "lineNiveaulijn", 0, &frmGrafiek};
  platform::Label lblNiveaulijn{around_.surface, "lblNiveaulijn", 0, &frmGrafiek};
  platform::Label lblNiveauVanF{around_.surface, "lblNiveauVanF", 0, &frmGrafiek};
  platform::Label lblGebiedKleur{around_.surface, "lblGebiedKleur", 0, &frmGrafiek};
  platform::Label lblGebied{around_.surface, "lblGebied", 0, &frmGrafiek};
  platform::Label lblX1{around_.surface, "lblX1", 0, &frmGrafiek};
  platform::Label lblValX1{around_.surface, "lblValX1", 0, &frmGrafiek};
  platform::Label lblX2{around_.surface, "lblX2", 0, &frmGrafiek};
  platform::Label lblValX2{around_.surface, "lblValX2", 0, &frmGrafiek};
  platform::Label lblF{around_.surface, "lblF", 0, &frmGrafiek};
  platform::Label lblDoelfunctie{around_.surface, "lblDoelfunctie", 0, &frmGrafiek};
  platform::Label lblLetOp{around_.surface, "lblLetOp", 0, &frmGrafiek};
  platform::CommandButton cmdKopieren{around_.surface, "cmdKopieren", &frmGrafiek};
  platform::CommandButton cmdReset{around_.surface, "cmdReset", &frmGrafiek};
  platform::CommandButton cmdSluiten{around_.surface, "cmdSluiten", &frmGrafiek};
  platform::CommandButton cmdFrame{around_.surface, "cmdFrame", &frmGrafiek};
};

}  // namespace tabulon
