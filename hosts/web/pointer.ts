// What a browser tells of a pointer, as the control has it.
import { PointerAction } from "#shared";

// While one button is held, a browser tells of the others as moves; then `button` is the one that changed, and
// `buttons` has a bit for each that is held now.
function actionOfMove({ button, buttons }: PointerEvent): PointerAction {
  if (button < 0) return PointerAction.Move;
  const bit = [1, 4, 2, 8, 16][button] ?? 32;
  return buttons & bit ? PointerAction.Down : PointerAction.Up;
}

type Heard = (event: PointerEvent, action: PointerAction) => void;

// From press to release the pointer is the node's, wherever it goes.
export function holdPointer(node: HTMLElement, pressed: PointerEvent, hear: Heard): void {
  const held = new AbortController();
  const pass = (
    type: "pointermove" | "pointerup" | "lostpointercapture",
    actionOf: (event: PointerEvent) => PointerAction,
  ) =>
    node.addEventListener(
      type,
      (event) => {
        if (event.pointerId !== pressed.pointerId) return;
        const action = actionOf(event);
        if (type !== "pointermove") held.abort();
        hear(event, action);
      },
      held,
    );
  pass("pointermove", actionOfMove);
  pass("pointerup", () => PointerAction.Up);
  pass("lostpointercapture", () => PointerAction.Lost);
  node.setPointerCapture(pressed.pointerId);
  hear(pressed, PointerAction.Down);
}

export const isLeft = ({ button, buttons }: PointerEvent, action: PointerAction): boolean =>
  action === PointerAction.Down ? button === 0 : (buttons & 1) !== 0;

// A click that no pointer made has no place, and is nowhere beside.
export function isBeside(node: Element, { detail, clientX, clientY }: MouseEvent): boolean {
  if (detail === 0) return false;
  const { left, top, right, bottom } = node.getBoundingClientRect();
  return clientX < Math.floor(left) || clientX > right || clientY < Math.floor(top) || clientY > bottom;
}
