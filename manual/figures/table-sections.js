export const SECTIONS = {};
