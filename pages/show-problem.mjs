// A problem in a control that stands on the page already. What is there stays when it is the same problem, with the
// steps that have been made in it.
let shown = "";

const isList = (name) => name.startsWith("prmSTR_");

export async function showProblem(control, { parameters }) {
  const wanted = JSON.stringify(parameters);
  if (wanted === shown) return;
  shown = wanted;
  await control.ready.catch(() => {});
  if (wanted !== shown) return;
  const given = Object.entries(parameters);
  for (const [name, value] of given.filter(([key]) => !isList(key))) control[name] = value;
  control.prmShow = true;
  for (const [name, value] of given.filter(([key]) => isList(key))) control[name.replace("STR_", "")] = value;
}
