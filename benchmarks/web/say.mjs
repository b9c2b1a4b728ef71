// One run of a benchmark, as ./bench reads it.
export const say = (name, value, unit) => console.log(JSON.stringify({ name, value, unit }));
