// What the browser keeps from one evening to the next, and forgets on request.
import assert from 'node:assert/strict';
import test from 'node:test';
import {
  GUESSES, guess, keptBy, newBrowser, openPage, openRows, ownName, reviewFolder, rowsNamed,
  stateOf,
} from './support.mjs';

const KEY = "'ornivo.review.' + location.pathname";

/** A page that finds this text where it keeps its choices. */
async function openWith(kept, rows = rowsNamed('a.jpg', 'b.jpg')) {
  const page = await openRows(rows);
  await page.evaluate(`localStorage.setItem(${KEY}, ${JSON.stringify(kept)})`);
  await page.reload();
  return page;
}

test('choices are there again when the page is opened again', async () => {
  const context = await newBrowser();
  const folder = reviewFolder(rowsNamed('a.jpg', 'b.jpg', 'c.jpg'));
  const page = await openPage(folder, context);
  await page.keyboard.press('2');
  await ownName(page, 1).fill('Smew');
  await page.close();

  assert.deepEqual(await stateOf(await openPage(folder, context)), {
    current: [0], done: [0, 1], picked: [[0, 1]], typed: [[1, 'Smew']], decided: '2', open: '1',
  });
});

test('each folder keeps choices of its own', async () => {
  const context = await newBrowser();
  const one = await openPage(reviewFolder(rowsNamed('a.jpg', 'b.jpg')), context);
  const other = await openPage(reviewFolder(rowsNamed('a.jpg', 'b.jpg')), context);
  await guess(one, 0, 0).click();
  await guess(other, 1, 2).click();
  await one.reload();
  await other.reload();
  assert.deepEqual((await stateOf(one)).picked, [[0, 0]]);
  assert.deepEqual((await stateOf(other)).picked, [[1, 2]]);
});

for (const corrupt of ['{"a.jpg":', 'null', '[0,1]', '"a.jpg"', '7', '']) {
  test(`storage that holds ${corrupt || 'nothing'} is empty storage`, async () => {
    const page = await openWith(corrupt);
    assert.deepEqual(await stateOf(page),
      { current: [0], done: [], picked: [], typed: [], decided: '0', open: '2' });
    assert.deepEqual(page.errors, []);
    await page.keyboard.press('1');
    assert.deepEqual(await keptBy(page), { 'a.jpg': 0 });
  });
}

test('a typed name with markup in it comes back as it was typed', async () => {
  const page = await openWith(JSON.stringify({ 'a.jpg': '"><b>Smew</b> & co' }));
  assert.equal(await ownName(page, 0).inputValue(), '"><b>Smew</b> & co');
});

test('a choice for a file that is no longer on the page still counts as decided', async () => {
  const page = await openWith('{"gone.jpg":1}');
  const state = await stateOf(page);
  assert.deepEqual([state.decided, state.open, state.done], ['1', '1', []]);
});

test('Reset forgets every choice at once and goes back to the first card', async () => {
  const page = await openRows(rowsNamed('a.jpg', 'b.jpg', 'c.jpg'));
  await page.keyboard.press('1');
  await ownName(page, 1).fill('Smew');
  await page.locator('#reset').click();
  assert.deepEqual(await stateOf(page),
    { current: [0], done: [], picked: [], typed: [], decided: '0', open: '3' });
  assert.equal(await ownName(page, 1).inputValue(), '');
  assert.equal(await page.evaluate(`localStorage.getItem(${KEY})`), null);
});

test('with storage that refuses, choices hold as long as the page is open', async () => {
  const context = await newBrowser();
  await context.addInitScript(() => {
    Storage.prototype.setItem = () => { throw new DOMException('full', 'QuotaExceededError'); };
  });
  const page = await openPage(reviewFolder([['a.jpg', GUESSES], ['b.jpg', GUESSES]]), context);
  await page.keyboard.press('1');
  assert.deepEqual((await stateOf(page)).picked, [[0, 0]]);
  assert.deepEqual(page.errors, []);

  const asked = new Promise((answer) => page.once('dialog', (dialog) => {
    answer(dialog.type());
    dialog.accept();
  }));
  await page.close({ runBeforeUnload: true });
  assert.equal(await asked, 'beforeunload', 'closing the page would lose them, and asks');
});
