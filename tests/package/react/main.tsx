// A page as a React author writes it: the exercise is taken off the page and put back by a button.
import { type TabulonError, TabulonLPctrl } from "tabulon";
import type {} from "tabulon/react";
import { useEffect, useRef, useState } from "react";
import { createRoot } from "react-dom/client";

function Exercise() {
  const tableau = useRef<TabulonLPctrl>(null);
  useEffect(() => {
    tableau.current?.ready.catch(({ number }: TabulonError) => console.error(number));
  }, []);
  return (
    <tabulon-lpctrl ref={tableau} id="LPctrl1">
      <param name="prmNrBeslisVar" value="2" />
      <param name="prmNrKleinerGelijkVglen" value="3" />
      <param name="prmSTR_DLfunctie" value=" -3, -5" />
      <param name="prmSTR_KleinerGelijkVglen" value=" 1, 0, 0, 2, 3, 2" />
      <param name="prmSTR_RL" value=" 4, 12, 18" />
    </tabulon-lpctrl>
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
