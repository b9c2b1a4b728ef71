// A page as a React author writes it: the exercise, with a log around it, is taken off the page and put back by a
// button.
import { type TabulonError, TabulonLPctrl } from "tabulon";
import type {} from "tabulon/react";
import "tabulon/tabulon-les.js";
import { useEffect, useRef, useState } from "react";
import { createRoot } from "react-dom/client";

function Exercise() {
  const tableau = useRef<TabulonLPctrl>(null);
  useEffect(() => {
    tableau.current?.ready.catch(({ number }: TabulonError) => console.error(number));
  }, []);
  return (
    <tabulon-les hulp="achteraf" ontabulon-change={({ detail }) => (document.title = detail.cause)}>
      <tabulon-lpctrl
        ref={tableau}
        id="LPctrl1"
        prmNrBeslisVar={2}
        prmNrKleinerGelijkVglen={3}
        prmSTR_DLfunctie=" -3, -5"
        prmSTR_KleinerGelijkVglen=" 1, 0, 0, 2, 3, 2"
        prmSTR_RL=" 4, 12, 18"
      />
    </tabulon-les>
  );
}

function App() {
  const [shown, setShown] = useState(true);
  return (
    <main>
      <button type="button" onClick={() => setShown(!shown)}>
        {TabulonLPctrl.version}
      </button>
      {shown && <Exercise />}
    </main>
  );
}

const root = document.getElementById("root");
if (root) createRoot(root).render(<App />);
