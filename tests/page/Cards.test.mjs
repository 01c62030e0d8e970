// What the page shows before anything is decided.
import assert from 'node:assert/strict';
import { join } from 'node:path';
import test from 'node:test';
import {
  DUNNOCK, ROBIN, WREN, openPage, openRows, reviewFolder, rowsNamed, writeClip,
} from './support.mjs';

const textOf = (page, selector) =>
  page.locator(selector).evaluate((element) => element.textContent.trim().replace(/\s+/g, ' '));
const attributesOf = (locator) => locator.evaluate((element) =>
  Object.fromEntries([...element.attributes].map(({ name, value }) => [name, value])));

test('the page has a card for each row, and says how many there are', async () => {
  const page = await openRows(rowsNamed('a.jpg', 'b.jpg', 'c.jpg'));
  assert.equal(await page.title(), 'Uncertain photographs — Ornivo');
  assert.equal(await textOf(page, 'h1'), 'These ones need your eye');
  assert.equal(await page.locator('#cards > article.card').count(), 3);
  assert.equal(await page.locator('#c2').getAttribute('data-i'), '2');
  assert.deepEqual(await page.locator('.tally').allTextContents(),
    ['0 decided of 3', '3 still open']);
  assert.deepEqual(page.errors, []);
});

test('a photograph is shown by its bare name, and read only when it comes near', async () => {
  const page = await openRows(rowsNamed('IMG 1.jpg'));
  const image = page.locator('#c0 img');
  assert.deepEqual(await attributesOf(image), { src: 'IMG%201.jpg', alt: '', loading: 'lazy' });
  await page.waitForFunction(() => document.querySelector('#c0 img').naturalWidth === 480);
});

test('names with letters of any script load', async () => {
  const names = ['Érable à sucre.jpg', '鳥.jpg', 'птица 50%.jpg', "o'bird & co.jpg"];
  const page = await openRows(rowsNamed(...names));
  await page.waitForFunction(() =>
    [...document.images].slice(0, 4).every((image) => image.naturalWidth > 0));
  assert.deepEqual(await page.locator('.file').allTextContents(), names);
});

test('a photograph whose name holds # or ? stays broken and can be decided all the same', async () => {
  const page = await openRows(rowsNamed('a#1.jpg', 'b?.jpg'));
  assert.deepEqual(
    await page.locator('.card img').evaluateAll((all) => all.map((one) => one.getAttribute('src'))),
    ['a#1.jpg', 'b?.jpg']);
  await page.waitForFunction(() => [...document.querySelectorAll('.card img')]
    .every((image) => image.complete && image.naturalWidth === 0));
  await page.keyboard.press('1');
  assert.equal(await textOf(page, '#n-done'), '1');
});

test('a clip is a player, whatever the case of its extension', async () => {
  const page = await openRows(rowsNamed('clip.MOV', 'b.mp4', 'c.m4v', 'd.mov.jpg', 'e.avi'));
  const kinds = await page.locator('.media').evaluateAll(
    (all) => all.map((media) => media.firstElementChild.tagName));
  assert.deepEqual(kinds, ['VIDEO', 'VIDEO', 'VIDEO', 'IMG', 'IMG']);
  assert.deepEqual(await attributesOf(page.locator('#c0 video')),
    { src: 'clip.MOV', controls: '', preload: 'metadata', playsinline: '' });
});

test('a clip plays: nothing that the page itself forbids keeps it from loading', async () => {
  const folder = reviewFolder(rowsNamed('clip.MOV'));
  writeClip(join(folder, 'clip.MOV'));
  const page = await openPage(folder);
  await page.waitForFunction(() => document.querySelector('#c0 video').readyState >= 1);
  assert.deepEqual(
    await page.locator('#c0 video').evaluate(({ videoWidth, videoHeight }) =>
      [videoWidth, videoHeight]),
    [128, 96]);
});

test('a guess shows its name, the scientific line, the confidence and its meter', async () => {
  const page = await openRows([['a.jpg', [ROBIN, WREN, DUNNOCK]]]);
  const guess = page.locator('#c0 .g').first();
  assert.equal(await guess.getAttribute('data-g'), '0');
  assert.equal(await guess.locator('.nm').textContent(), 'European Robin');
  assert.equal(await guess.locator('.sci').textContent(), 'Erithacus rubecula');
  assert.equal(await guess.locator('.pct').textContent(), '61.2%');
  const share = await guess.locator('.meter').evaluate((meter) =>
    meter.firstElementChild.getBoundingClientRect().width / meter.getBoundingClientRect().width);
  assert.ok(Math.abs(share - 0.612) < 0.005, `the meter is filled to ${share}`);
});

test('a row with two candidates has two guesses, one without any only the box', async () => {
  const page = await openRows([['a.jpg', [ROBIN, WREN]], ['b.jpg', []]]);
  assert.equal(await page.locator('#c0 .g').count(), 2);
  assert.equal(await page.locator('#c1 .g').count(), 0);
  assert.equal(await page.locator('#c1 [data-own]').count(), 1);
});

test('the box for a name of one’s own is labelled and leaves the typing alone', async () => {
  const page = await openRows(rowsNamed('a.jpg'));
  const own = page.getByLabel('Or name it yourself');
  const attributes = await attributesOf(own);
  assert.deepEqual(
    [attributes.type, attributes['data-own'], attributes.placeholder, attributes.autocapitalize,
      attributes.autocorrect, attributes.spellcheck, attributes.value],
    ['text', '', 'e.g. Koklass Pheasant', 'words', 'off', 'false', '']);
});

test('markup in a file name or a label is text', async () => {
  const names = ['<img src=x onerror=alert(1)>.jpg', '"quoted" & <b>bold<.jpg', '{{rows}}.jpg'];
  const page = await openRows(names.map((name) => [name, [['<i>Pica_"pica"</i>&', 0.3]]]));
  assert.deepEqual(await page.locator('.file').allTextContents(), names);
  assert.equal(await page.locator('#c0 .sci').textContent(), '<i>Pica "pica"</i>&');
  assert.equal(await page.locator('.file *, .g i i').count(), 0);
  assert.equal(await page.locator('#cards img').count(), 3);
  assert.deepEqual(page.errors, []);
});

test('a name that would end the script does not', async () => {
  // A file name can't hold the slash of the real closing tag, but a label can.
  const page = await openRows([['a<!--<script>.jpg', [['</script><h1>gone</h1>', 0.3]]]]);
  assert.equal(await page.locator('h1').count(), 1);
  assert.equal(await page.locator('#c0 .sci').textContent(), '</script><h1>gone</h1>');
});

test('nothing is asked of the network, not even for a name that looks like an address', async () => {
  const folder = reviewFolder([['http:localhost.jpg', []], ...rowsNamed('a.jpg', 'b.mov')]);
  const page = await openPage(folder);
  await page.waitForFunction(() => document.querySelector('#c1 img').naturalWidth > 0);
  await page.waitForFunction(() => document.querySelector('#c0 img').complete);
  // What the page's own policy stops is noted by the browser all the same, as blocked.
  const sent = page.requests.filter((request) => request.failure()?.errorText !== 'csp');
  const kinds = new Set(sent.map((request) => new URL(request.url()).protocol));
  assert.deepEqual([...kinds], ['file:']);
  assert.ok(sent.length >= 2, 'the page and its photograph were read');
});
