// What a teacher may begin with; the first stands there at the first visit.
const exercise = (titel, tekst, probleem, ...vragen) => ({
  titel,
  tekst,
  probleem,
  vragen: vragen.map(([vraag, antwoord]) => ({ vraag, antwoord })),
  hulp: "",
});

export const examples = {
  "een maximum": exercise(
    "Het naaiatelier",
    "Een naaiatelier maakt schooltassen en rugzakken. Aan een schooltas verdient het 5 euro, aan een rugzak 4. Een " +
      "schooltas kost 2 meter stof en een rugzak 1 meter; er is 40 meter. Elke tas krijgt één rits, en er zijn 30 " +
      "ritsen.\n\nHoeveel maakt het atelier van elk om zo veel mogelijk te verdienen?",
    "max W = 5 schooltas + 4 rugzak\n\nstof: 2 schooltas + rugzak <= 40\nritsen: schooltas + rugzak <= 30\n",
    [
      "Welke kolom kies je eerst, en welke rij?",
      "De kolom van de schooltas en de rij van de stof: 40 : 2 = 20 tegen 30.",
    ],
    ["Hoeveel verdient het atelier hoogstens?", "130 euro, met 10 schooltassen en 20 rugzakken."],
  ),
  "een minimum": exercise(
    "Het ontbijt",
    "Een portie havermout kost 0,40 euro en levert 6 gram eiwit en 4 gram vezels. Een bakje yoghurt kost 0,50 euro en " +
      "levert 10 gram eiwit en 2 gram vezels. Bij een ontbijt horen minstens 28 gram eiwit en 14 gram vezels.",
    "min K = 0,40 havermout + 0,50 yoghurt\n\neiwit: 6 havermout + 10 yoghurt >= 28\n" +
      "vezels: 4 havermout + 2 yoghurt >= 14\n",
    ["Wat kost het goedkoopste ontbijt?", "1,70 euro: 3 porties havermout en 1 bakje yoghurt."],
  ),
  "≤, ≥ en =": exercise(
    "De fruitmix",
    "Een kraam mengt precies 10 kilo fruit van appels, peren en druiven. Aan een kilo appels verdient de kraam 1 euro, aan " +
      "peren 2 en aan druiven 3. Er zijn hoogstens 4 kilo druiven, en er moet minstens 2 kilo appel in.",
    "max W = appels + 2 peren + 3 druiven\n\nkist: appels + peren + druiven = 10\nvoorraad: druiven <= 4\n" +
      "recept: appels >= 2\n",
    ["Hoe ziet de beste mix eruit?", "2 kilo appels, 4 kilo peren en 4 kilo druiven, voor 22 euro."],
  ),
  "een valkuil": exercise(
    "Twee gelijke quotiënten",
    "Los op, en reken de uitkomst na.",
    "max F = 3x + 9y\n\nx + 4y <= 8\nx + 2y <= 4\n",
  ),
};
