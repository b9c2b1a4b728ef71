// pagina.js: what the pages around the control can do. A button with data-los="bakker.html" saves that page as a
// single file.

// A page may be served under the rule that scripts are not named by mere texts.
const ownScript = (name) =>
  globalThis.trustedTypes?.createPolicy("tabulon-pagina", { createScriptURL: () => name }).createScriptURL("") ?? name;

let loading;
const load = () =>
  (loading ??= new Promise((resolve, reject) => {
    const script = document.createElement("script");
    script.src = ownScript("los-bestand.js");
    script.onload = resolve;
    script.onerror = reject;
    document.head.append(script);
  }));

async function save(name) {
  await load();
  const link = document.createElement("a");
  link.href = URL.createObjectURL(new Blob([globalThis.tabulonLosBestand(name)], { type: "text/html" }));
  link.download = name === "index.html" ? "meubelmaker.html" : name;
  link.click();
  // The browser has taken it by then.
  setTimeout(() => URL.revokeObjectURL(link.href), 60_000);
}

for (const button of document.querySelectorAll("button[data-los]"))
  button.addEventListener("click", () => save(button.dataset.los));
