// By what the style sheet and what is drawn beside it go.

// What is drawn around forms and menus, in pixels.
export enum Around {
  border = 1,
  formTitle = 32,
  menuPadding = 4,
}

// The person's own letters where they are about as wide as these, so that every caption fits its place.
export const letters =
  '"Segoe UI", -apple-system, Roboto, "Noto Sans", "Liberation Sans", Arial, system-ui, sans-serif';
