// Scenarios as lists of commands; tests/scenarios/README.md has the language.
//
//   readScenario('see lblFRL " 36"')  ->  [{ line: 1, words: ["see", "lblFRL", " 36"], quoted: [, , true], below: [] }]

const isQuoted = (text) => text.length >= 2 && text.startsWith('"') && text.endsWith('"');
const withoutQuotes = (text) => (isQuoted(text) ? text.slice(1, -1) : text);

function readLine(text, line) {
  const command = { line, words: [], quoted: [], value: "", valueQuoted: false, below: [] };
  for (let rest = text.trimStart(); rest; rest = rest.trimStart()) {
    if (rest.startsWith("= ")) {
      command.value = withoutQuotes(rest.slice(2));
      command.valueQuoted = isQuoted(rest.slice(2));
      break;
    }
    const [word] = rest.match(/^"[^"]*"?|^[^ ]+/);
    command.words.push(withoutQuotes(word));
    command.quoted.push(isQuoted(word));
    rest = rest.slice(word.length);
  }
  return command;
}

export function readScenario(text) {
  const commands = [];
  text.split("\n").forEach((written, at) => {
    if (!written.trim() || written.trimStart().startsWith("#")) return;
    const command = readLine(written, at + 1);
    if (written.startsWith(" ") && commands.length) commands.at(-1).below.push(command);
    else commands.push(command);
  });
  return commands;
}

// { LABEL: the text dumped under it }
export function readDumps(text) {
  const dumps = {};
  for (const part of text.split(/^== /m).slice(1)) {
    const end = part.indexOf("\n");
    dumps[part.slice(0, end)] = part.slice(end + 1);
  }
  return dumps;
}
