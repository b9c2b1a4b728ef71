// Ten problems as a textbook has them and as a teacher types them, with their optimum worked out by another hand: all
// corners by pencil, in fractions.
export const textbook = [
  {
    titel: "De kaarsenmaker",
    probleem: "max F = 2x + 3y\nx + y <= 8\nx + 2y <= 12",
    F: 20,
    values: { "x 1": 4, "x 2": 4 },
  },
  {
    titel: "Tassen",
    probleem:
      "Maximaliseer W = 5 schooltas + 4 rugzak\nonder de voorwaarden\nstof: 2 schooltas + rugzak ≤ 40\nritsen: schooltas + rugzak ≤ 30",
    F: 130,
    values: { "x 1": 10, "x 2": 20 },
  },
  {
    titel: "De bloemist",
    probleem:
      "max W = 4x₁ + 5x₂ + 3x₃\nwater: x₁ + 2x₂ + x₃ <= 20\nuren: 2x₁ + x₂ + x₃ <= 24\npotten: x₁ + x₂ + x₃ <= 14\nx₁, x₂, x₃ >= 0",
    F: 62,
    values: { "x 1": 8, "x 2": 6 },
  },
  {
    titel: "Het ontbijt",
    probleem:
      "min K = 0,40 havermout + 0,50 yoghurt\neiwit: 6 havermout + 10 yoghurt >= 28\nvezels: 4 havermout + 2 yoghurt >= 14",
    F: -1.7,
    values: { "x 1": 3, "x 2": 1 },
  },
  {
    titel: "De fruitmix",
    probleem: "max W = a + 2p + 3d\nkist: a + p + d = 10\nd <= 4 # de voorraad\na >= 2",
    F: 22,
    values: { "x 1": 2, "x 2": 4, "x 3": 4 },
  },
  {
    titel: "Bróód & gebäk",
    probleem:
      "max Winst = 1,50 brood + 2,75 gebäk\nmeel: 0,5 brood + 0.75 gebäk <= 24\noven: brood + 0,5 gebäk <= 30\nvitrine: gebäk <= 22",
    F: 83,
    values: { "x 1": 15, "x 2": 22 },
  },
  {
    titel: "Halve en derde",
    probleem: "max x + y\n1/2 x + y <= 6; x + 1/3 y <= 7",
    F: 9,
    values: { "x 1": 6, "x 2": 3 },
  },
  {
    titel: "Aan beide kanten",
    probleem: "max F = 2x + 3y\nx <= 10 - y\ny - 4 <= x\n15 >= 2x + y",
    F: 27,
    values: { "x 1": 3, "x 2": 7 },
  },
  {
    titel: "Vervoer",
    probleem:
      "min K = 4a1 + 6a2 + 5b1 + 3b2\nmagazijn A: a1 + a2 <= 30\nmagazijn B: b1 + b2 <= 40\nwinkel 1: a1 + b1 = 25\nwinkel 2: a2 + b2 = 35\nM = 1000",
    F: -205,
    values: { "x 1": 25, "x 4": 35 },
  },
  {
    titel: "Zeven restricties",
    probleem:
      "max F = 3a + 2b + 4c + d + 2e + 3f\na + b + c <= 20\nd + e + f <= 30\na + d <= 15\nb + e <= 18\nc + f <= 22\n2a + b + f <= 36\nc + 2d + e <= 28",
    F: 142,
    values: {},
  },
];
