export const LISTS = {};
