// Amounts and dates as the paper has them.

// "3890.50" as "3.890,50".
export function money(plain) {
  const [whole, cents] = String(plain).split(".");
  return `${whole.replace(/\B(?=(\d{3})+$)/g, ".")},${cents ?? "00"}`;
}

// "2026-11-21 10:30:00", or with a T between, as "21/11/2026 10:30:00".
export function moment(iso) {
  const parts = /^(\d{4})-(\d\d)-(\d\d)[T ](.*)$/.exec(iso ?? "");
  return parts ? `${parts[3]}/${parts[2]}/${parts[1]} ${parts[4]}` : iso ?? "";
}

// The way back, for what a person writes; what has another form stays as it is.
export function isoMoment(words) {
  const parts = /^(\d\d)\/(\d\d)\/(\d{4}) (.*)$/.exec(words.trim());
  return parts ? `${parts[3]}-${parts[2]}-${parts[1]} ${parts[4]}` : words.trim();
}
