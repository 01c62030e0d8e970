// An evening's worth of photographs: 5,000 cards. Times are printed for people, not judged.
import assert from 'node:assert/strict';
import test from 'node:test';
import { openPage, reviewFolder, rowsNamed, stateOf } from './support.mjs';

const COUNT = 5000;
const names = Array.from({ length: COUNT }, (_, i) => `IMG_${String(i).padStart(4, '0')}.jpg`);

let folder;
/** Made once, as it takes a while. */
const fullFolder = () => (folder ??= reviewFolder(rowsNamed(...names)));

const median = (numbers) => [...numbers].sort((a, b) => a - b)[Math.floor(numbers.length / 2)];

/** Milliseconds from a key press to the next frame, in the page, for each of the keys. */
const timeKeys = (page, key, times) => page.evaluate(async ([pressed, count]) => {
  const spent = [];
  for (let i = 0; i < count; ++i) {
    await new Promise(requestAnimationFrame);
    const start = performance.now();
    document.body.dispatchEvent(new KeyboardEvent('keydown', { key: pressed, bubbles: true }));
    const handled = performance.now() - start;
    document.body.getBoundingClientRect();
    spent.push([handled, performance.now() - start]);
  }
  return spent;
}, [key, times]);

test('five thousand cards open, and a key changes only the cards it is about', async (t) => {
  fullFolder();
  const start = performance.now();
  const page = await openPage(fullFolder());
  await page.evaluate(() => new Promise(requestAnimationFrame));
  t.diagnostic(`opened in ${Math.round(performance.now() - start)} ms`);
  assert.equal(await page.locator('.card').count(), COUNT);
  assert.ok(page.requests.length < 200, `${page.requests.length} requests, though photographs are lazy`);

  const touched = await page.evaluate(async () => {
    const seen = new Set();
    const watch = (changes) => changes.forEach(
      ({ target }) => seen.add(target.closest('.card')?.dataset.i));
    const observer = new MutationObserver(watch);
    observer.observe(document.getElementById('cards'), { attributes: true, subtree: true });
    document.body.dispatchEvent(new KeyboardEvent('keydown', { key: '1', bubbles: true }));
    watch(observer.takeRecords());
    return [...seen].map(Number);
  });
  assert.deepEqual(touched.sort(), [0, 1]);

  for (const key of ['1', 'j', 'k']) {
    const spent = await timeKeys(page, key, 60);
    t.diagnostic(`key ${key}: median ${median(spent.map(([handled]) => handled)).toFixed(2)} ms ` +
      `handled, ${median(spent.map(([, laid]) => laid)).toFixed(2)} ms with the layout`);
  }
  const state = await stateOf(page);
  assert.deepEqual([state.decided, state.open], ['61', String(COUNT - 61)]);
  assert.deepEqual(page.errors, []);
});

test('far down the page, a key still brings the next card to the middle', async () => {
  const page = await openPage(fullFolder());
  await page.evaluate(() => document.getElementById('c4500').scrollIntoView());
  await page.locator('#c4500 .file').click();
  await page.keyboard.press('j');
  await page.waitForFunction(() => {
    const { top, height } = document.getElementById('c4501').getBoundingClientRect();
    return Math.abs(top + height / 2 - innerHeight / 2) < 60;
  });
  assert.deepEqual((await stateOf(page)).current, [4501]);
});
