// A browser that does what it is told, one JSON line [what, ...with] after the other, and answers
// each with a JSON line: {"value": ...} or {"error": "..."}.
import { createInterface } from "node:readline";
import { chromium } from "playwright-core";

const FLAGS = [
  "--headless", "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run",
  "--disable-background-networking", "--disable-component-update", "--disable-sync",
];
const WAIT = 20000;

const [executablePath, userDataDir] = process.argv.slice(2);
const context = await chromium.launchPersistentContext(userDataDir, {
  executablePath, args: FLAGS, headless: true, viewport: { width: 1280, height: 800 },
});
let page = context.pages()[0] ?? await context.newPage();

const complaints = [];
let own = "";
function watch() {
  page.setDefaultTimeout(WAIT);
  page.on("pageerror", (error) => complaints.push(error.message));
  page.on("console", (message) => {
    if (message.type() === "error") complaints.push(message.text());
  });
  page.on("request", (request) => {
    if (!request.url().startsWith(own)) complaints.push(request.url());
  });
}
watch();

const DEEDS = {
  open: async (url) => {
    own = new URL(url).origin + "/";
    await page.goto(url);
  },
  // The tab goes as a user closes it, and another one comes: whatever the page was about to do is lost.
  leave: async () => {
    const left = page;
    page = await context.newPage();
    watch();
    await left.close();
  },
  size: (width, height) => page.setViewportSize({ width, height }),
  click: (selector) => page.click(selector),
  fill: (selector, text) => page.fill(selector, text),
  focus: (selector) => page.focus(selector),
  press: (key) => page.keyboard.press(key),
  choose: async (selector, label) => { await page.selectOption(selector, { label }); },
  text: (selector) => page.innerText(selector),
  attribute: (selector, name) => page.getAttribute(selector, name),
  checked: (selector) => page.isChecked(selector),
  wait: async (selector, text) => {
    await page.locator(selector).filter({ hasText: text ?? "" }).first().waitFor();
  },
  count: (selector) => page.locator(selector).count(),
  evaluate: (code) => page.evaluate(code),
  dark: (on) => page.emulateMedia({ colorScheme: on ? "dark" : "light" }),
  picture: async (path) => { await page.screenshot({ path }); },
  complaints: () => complaints.splice(0),
};

for await (const line of createInterface({ input: process.stdin })) {
  const [deed, ...details] = JSON.parse(line);
  let answer;
  try {
    answer = { value: (await DEEDS[deed](...details)) ?? null };
  } catch (error) {
    answer = { error: error.message };
  }
  process.stdout.write(JSON.stringify(answer) + "\n");
}
await context.close();
