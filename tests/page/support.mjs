// What the tests of the review page share: a folder as a run leaves it, and a browser on its page.
import { spawnSync } from 'node:child_process';
import { mkdtempSync, rmSync } from 'node:fs';
import { createRequire } from 'node:module';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { pathToFileURL } from 'node:url';
import { after, afterEach, before } from 'node:test';

/** A variable that ctest sets. */
export function setting(name) {
  if (!process.env[name]) throw new Error(`${name} is not set; run this test through ctest`);
  return process.env[name];
}

const { chromium } = createRequire(import.meta.url)(setting('ORNIVO_PLAYWRIGHT'));

const FLAGS = [
  '--no-sandbox', '--disable-gpu', '--disable-quic', '--no-first-run',
  '--disable-background-networking', '--disable-component-update', '--disable-sync',
];

/** The modes of the browser that the page looks at, as a person without wishes has them. */
const SETTINGS = {
  viewport: { width: 1280, height: 800 },
  colorScheme: 'light',
  reducedMotion: 'reduce',
  locale: 'en-GB',
};

export const ROBIN = ['Erithacus_rubecula', 0.6123];
export const WREN = ['Troglodytes_troglodytes', 0.2];
export const DUNNOCK = ['Prunella_modularis', 0.0549];
export const GUESSES = [ROBIN, WREN, DUNNOCK];

/** Rows with the names given and the same three guesses each. */
export const rowsNamed = (...names) => names.map((name) => [name, GUESSES]);

/** In milliseconds. Stops a test that hangs; a busy machine takes seconds to open a page. */
const PATIENCE = 120000;

let browser;
const folders = [];
const contexts = [];

before(async () => {
  browser = await chromium.launch({
    executablePath: setting('ORNIVO_CHROMIUM'), args: FLAGS, headless: true,
  });
});

afterEach(() => Promise.all(contexts.splice(0).map((context) => context.close())));

after(async () => {
  await browser?.close();
  folders.forEach((folder) => rmSync(folder, { recursive: true, force: true }));
});

/** A new empty folder, gone when the tests of the file are done. */
export function newFolder() {
  folders.push(mkdtempSync(join(tmpdir(), 'ornivo-page-')));
  return folders.at(-1);
}

/** Runs one of the build's programs, away from the person's own caches; answers its standard output. */
export function runProgram(name, args, input = '') {
  const env = { ...process.env, XDG_CACHE_HOME: newFolder() };
  const done = spawnSync(join(setting('ORNIVO_BIN'), name), args, { input, env, encoding: 'utf8' });
  if (done.error) throw done.error;
  if (done.status !== 0) {
    throw new Error(`${name} ended with ${done.status}: ${done.stdout}${done.stderr}`);
  }
  return done.stdout;
}

/** Writes half a second of one colour, with sound if wished for. */
export function writeClip(path,
  { size = '128x96', coding = ['-c:v', 'libx264'], sound = false } = {}) {
  const tone = sound ? ['-f', 'lavfi', '-i', 'sine=d=0.5', '-c:a', 'aac'] : [];
  const done = spawnSync('ffmpeg', [
    '-nostdin', '-y', '-loglevel', 'error', '-f', 'lavfi', '-i', `color=gray:s=${size}:r=10:d=0.5`,
    ...tone, ...coding, '-pix_fmt', 'yuv420p', path,
  ], { encoding: 'utf8' });
  if (done.error) throw done.error;
  if (done.status !== 0) throw new Error(`ffmpeg made no ${path}: ${done.stderr}`);
}

/** A folder with pictures and the page that the program writes for these rows. */
export function reviewFolder(rows, gate = 0.85) {
  const folder = newFolder();
  runProgram('write_review_page', [folder], JSON.stringify({ gate, rows }));
  return folder;
}

/** A person's browser: what it keeps, it keeps from page to page. */
export async function newBrowser(settings = {}) {
  const context = await browser.newContext({ ...SETTINGS, ...settings });
  context.setDefaultTimeout(PATIENCE);
  contexts.push(context);
  return context;
}

/** Opens the page of a folder. Errors of its script and requests it makes are noted on it. */
export async function openPage(folder, context) {
  const page = await (context ?? await newBrowser()).newPage();
  page.errors = [];
  page.requests = [];
  page.on('pageerror', (error) => page.errors.push(error.message));
  page.on('request', (request) => page.requests.push(request));
  await page.goto(pathToFileURL(join(folder, 'review.html')).href);
  return page;
}

/** A browser on the page of a new folder with these rows. */
export const openRows = (rows, settings) =>
  newBrowser(settings).then((context) => openPage(reviewFolder(rows), context));

/** What the page shows of its state. */
export const stateOf = (page) => page.evaluate(() => {
  const numbers = (selector) =>
    [...document.querySelectorAll(selector)].map((card) => Number(card.dataset.i));
  return {
    current: numbers('.card.on'),
    done: numbers('.card.done'),
    picked: [...document.querySelectorAll('.g.pick')].map(
      (guess) => [Number(guess.closest('.card').dataset.i), Number(guess.dataset.g)]),
    typed: [...document.querySelectorAll('.own input.pick')].map(
      (own) => [Number(own.closest('.card').dataset.i), own.value]),
    decided: document.getElementById('n-done').textContent,
    open: document.getElementById('n-left').textContent,
  };
});

/** What the browser keeps for a page. */
export const keptBy = (page) => page.evaluate(
  () => JSON.parse(localStorage.getItem('ornivo.review.' + location.pathname)));

export const guess = (page, card, index) => page.locator(`#c${card} .g[data-g="${index}"]`);
export const ownName = (page, card) => page.locator(`#c${card} [data-own]`);

/** Presses "Copy decisions"; answers what the clipboard then holds. */
export async function copied(page) {
  await page.context().grantPermissions(['clipboard-read', 'clipboard-write']);
  await page.locator('#copy').click();
  await page.locator('#copy', { hasText: /^Copied$/ }).waitFor();
  return page.evaluate(() => navigator.clipboard.readText());
}
