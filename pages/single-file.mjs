// A page with all that it names inside it, so that it is one file to mail or to upload:
//
//   singleFile("bakker.html", (name) => texts[name])
//
// `read` gives the text of a file beside the page. What stands between <!-- alleen hier --> and <!-- /alleen hier -->
// is for the page among its neighbours, and is left out.

const onlyHere = / *<!-- alleen hier -->.*?<!-- \/alleen hier -->\n?/gs;
const styleSheet = /<link rel="stylesheet" href="([^"]+)">/g;
const icon = /<link rel="icon" href="([^"]+)">/g;
const script = /<script src="([^"]+)"( defer)?><\/script>/g;

// The end of the element, where it stands in a text of its own.
const withoutEnd = (text, name) => text.replaceAll(new RegExp(`</(?=${name})`, "gi"), "<\\/");
const asStyle = (text) => `<style>\n${withoutEnd(text, "style")}</style>`;
// One that waits for the page is a module: those do, and are allowed to stand in it.
const asScript = (text, waits) =>
  `<script${waits ? ' type="module"' : ""}>\n${withoutEnd(text, "script").replaceAll("<!--", "<\\!--")}</script>`;
const asIcon = (text) => `<link rel="icon" href="data:image/svg+xml,${encodeURIComponent(text)}">`;

export function singleFile(name, read) {
  return read(name)
    .replaceAll("\r\n", "\n")
    .replace(onlyHere, "")
    .replace(styleSheet, (_, file) => asStyle(read(file)))
    .replace(icon, (_, file) => asIcon(read(file)))
    .replace(script, (_, file, waits) => asScript(read(file), waits));
}
