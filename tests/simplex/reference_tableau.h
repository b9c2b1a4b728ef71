// The operations once more, step by step on bare arrays with every text made at once: what the fast ones
// are compared with.
//
//   ReferenceTableau expected(model);
//   expected.KolomVegen();
//   sweep_column(model);
//   expect_same(model, expected);
#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <string>

#include "control/basSafeCtl.h"
#include "numbers/display.h"

namespace tabulon {

struct ReferenceTableau {
  explicit ReferenceTableau(const basSafeCtl& model)
      : m(model.rows()),
        N(model.columns()),
        Breuken(model.Breuken ? numbers::kFractions : numbers::kDecimals),
        NrTableau(model.NrTableau),
        PivotRij(model.PivotRij),
        PivotKolom(model.PivotKolom),
        NormeerKolom(model.NormeerKolom) {
    for (int i = 1; i <= most_rows; ++i) {
      const CellRow& row = model.current.row(i);
      for (int j = 1; j <= most_columns; ++j) Tableau[i][j] = row.value(j), strTableau[i][j] = row.text(j);
      RL[i] = row.right(), strRL[i] = row.text(CellRow::right_hand_side);
      Basis[i] = model.current.basis(i);
    }
    const CellRow& row_F = model.current.row_F();
    for (int j = 1; j <= most_columns; ++j) Rij_F[j] = row_F.value(j), strRij_F[j] = row_F.text(j);
    FRL = row_F.right(), strFRL = row_F.text(CellRow::right_hand_side);
  }

  void KolomNormeren() {
    const int c = NormeerKolom;
    for (int i = 1; i <= m; ++i) {
      const double p = Tableau[i][c];
      if (std::fabs(p) > 1e-9) {
        for (int j = 1; j <= N; ++j) {
          Tableau[i][j] = Tableau[i][j] / p;
          strTableau[i][j] = text_of(Tableau[i][j]);
        }
        RL[i] = RL[i] / p;
      }
      strRL[i] = text_of(RL[i]);
    }
    for (int j = 1; j <= N; ++j) strRij_F[j] = text_of(Rij_F[j]);
  }

  void KolomVegen() {
    const int r = PivotRij, k = PivotKolom;
    if (r >= 0 && r <= 10 && k >= 0 && k <= 30 && std::fabs(Tableau[r][k]) > 1e-9) sweep(r, k);
    if (NrTableau < 32767) NrTableau = static_cast<std::int16_t>(NrTableau + 1);
    PivotRij = 0;
    PivotKolom = 0;
  }

  void BasisoplossingOpvragen() {
    const std::int16_t remembered = NrTableau;
    for (int i = 1; i <= m; ++i) {
      PivotRij = static_cast<std::int16_t>(i);
      PivotKolom = Basis[i];
      KolomVegen();
    }
    NrTableau = remembered;
  }

  void ZoekPivotElement() {
    PivotKolom = 0;
    PivotRij = 0;
    double best = -1e-10;
    int k = 0;
    for (int j = 1; j <= N; ++j)
      if (Rij_F[j] < best) k = j, best = Rij_F[j];
    if (k == 0) return;
    best = 0.0;
    int r = 0;
    for (int i = 1; i <= m; ++i) {
      if (!(std::fabs(Tableau[i][k]) > 1e-8)) continue;
      const double q = RL[i] / Tableau[i][k];
      if (q > best) r = i, best = q;
    }
    if (r == 0) return;
    for (int i = 1; i <= m; ++i) {
      if (!(std::fabs(Tableau[i][k]) > 1e-8)) continue;
      const double q = RL[i] / Tableau[i][k];
      if (q < best && q > 0) r = i, best = q;
    }
    PivotKolom = static_cast<std::int16_t>(k);
    PivotRij = static_cast<std::int16_t>(r);
  }

  bool all_finite() const {
    bool finite = std::isfinite(FRL);
    for (int i = 1; i <= m; ++i) finite = finite && std::isfinite(RL[i]);
    for (int j = 1; j <= N; ++j) {
      finite = finite && std::isfinite(Rij_F[j]);
      for (int i = 1; i <= m; ++i) finite = finite && std::isfinite(Tableau[i][j]);
    }
    return finite;
  }

  int m, N;
  std::int16_t Breuken;
  std::int16_t NrTableau, PivotRij, PivotKolom, NormeerKolom;
  double Tableau[11][31] = {}, RL[11] = {}, Rij_F[31] = {}, FRL = 0;
  std::string strTableau[11][31], strRL[11], strRij_F[31], strFRL;
  std::int16_t Basis[11] = {};

 private:
  std::string text_of(double& value) const { return numbers::strSoortGetal(Breuken, value); }

  void sweep(int r, int k) {
    const double p = Tableau[r][k];
    const double f = -Rij_F[k] / p;
    for (int j = 1; j <= N; ++j) {
      Rij_F[j] = Rij_F[j] + f * Tableau[r][j];
      strRij_F[j] = text_of(Rij_F[j]);
    }
    FRL = FRL + f * RL[r];
    strFRL = text_of(FRL);
    for (int i = 1; i <= m; ++i)
      if (i != r) sweep_row(i, r, -Tableau[i][k] / p);
    Basis[r] = static_cast<std::int16_t>(k);
    for (int i = 1; i <= m; ++i) {
      NormeerKolom = Basis[i];
      KolomNormeren();
    }
  }

  void sweep_row(int i, int r, double g) {
    if (!(std::fabs(g) > 1e-9)) return;
    for (int j = 1; j <= N; ++j) {
      Tableau[i][j] = Tableau[i][j] + g * Tableau[r][j];
      strTableau[i][j] = text_of(Tableau[i][j]);
    }
    RL[i] = RL[i] + g * RL[r];
    strRL[i] = text_of(RL[i]);
  }
};

// Every number, text, basis entry and counter, in the problem and beside it.
inline void expect_same(const basSafeCtl& model, const ReferenceTableau& expected) {
  EXPECT_EQ(model.NrTableau, expected.NrTableau);
  EXPECT_EQ(model.PivotRij, expected.PivotRij);
  EXPECT_EQ(model.PivotKolom, expected.PivotKolom);
  EXPECT_EQ(model.NormeerKolom, expected.NormeerKolom);
  const auto expect_cell = [](const CellRow& row, int column, double value, const std::string& text, int i) {
    EXPECT_TRUE(row.value(column) == value)
        << "row " << i << " column " << column << ": " << row.value(column) << " is not " << value;
    EXPECT_EQ(row.text(column), text) << "row " << i << " column " << column;
  };
  for (int i = 1; i <= most_rows; ++i) {
    const CellRow& row = model.current.row(i);
    EXPECT_EQ(model.current.basis(i), expected.Basis[i]) << "row " << i;
    for (int j = 1; j <= most_columns; ++j)
      expect_cell(row, j, expected.Tableau[i][j], expected.strTableau[i][j], i);
    expect_cell(row, CellRow::right_hand_side, expected.RL[i], expected.strRL[i], i);
  }
  const CellRow& row_F = model.current.row_F();
  for (int j = 1; j <= most_columns; ++j) expect_cell(row_F, j, expected.Rij_F[j], expected.strRij_F[j], 0);
  expect_cell(row_F, CellRow::right_hand_side, expected.FRL, expected.strFRL, 0);
}

}  // namespace tabulon
