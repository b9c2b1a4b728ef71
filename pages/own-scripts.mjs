// What the scripts of the pages share: another script beside the page, and a file for the person to keep.

// A page may be served under the rule that scripts are not named by mere texts.
const asScriptURL = (name) =>
  globalThis.trustedTypes?.createPolicy("tabulon-pagina", { createScriptURL: () => name }).createScriptURL("") ?? name;

const loading = new Map();

export function load(name) {
  if (!loading.has(name))
    loading.set(
      name,
      new Promise((resolve, reject) => {
        const script = document.createElement("script");
        script.src = asScriptURL(name);
        script.onload = resolve;
        script.onerror = reject;
        document.head.append(script);
      }),
    );
  return loading.get(name);
}

export function keep(name, html) {
  const link = document.createElement("a");
  link.href = URL.createObjectURL(new Blob([html], { type: "text/html" }));
  link.download = name;
  link.click();
  // The browser has taken it by then.
  setTimeout(() => URL.revokeObjectURL(link.href), 60_000);
}

// The page as a single file; `page` is its text where it is none of ours.
export async function asSingleFile(name, page) {
  await load("los-bestand.js");
  return globalThis.tabulonLosBestand(name, page);
}
