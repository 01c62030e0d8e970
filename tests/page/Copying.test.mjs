// The list of decisions, as the program reads it.
import assert from 'node:assert/strict';
import test from 'node:test';
import {
  ROBIN, WREN, copied, guess, newBrowser, openPage, openRows, ownName, reviewFolder, rowsNamed,
  stateOf,
} from './support.mjs';

const button = (page) => page.locator('#copy');

/** A page whose browser refuses the clipboard in the way given. */
async function openRefusing(refusal, rows) {
  const context = await newBrowser();
  await context.addInitScript(refusal);
  return openPage(reviewFolder(rows), context);
}

const rejects = () => {
  navigator.clipboard.writeText = () => Promise.reject(new Error('not allowed'));
};
const lacks = () => Object.defineProperty(navigator, 'clipboard', { value: undefined });

test('the decisions are copied in the order of the page', async () => {
  const page = await openRows(rowsNamed('a.jpg', 'b.jpg', 'c.jpg', 'd.jpg'));
  await ownName(page, 3).fill('Koklass Pheasant');
  await guess(page, 2, 0).click();
  await guess(page, 0, 1).click();
  assert.equal(await copied(page), [
    'filename,species', '"a.jpg","Eurasian Wren"', '"c.jpg","European Robin"',
    '"d.jpg","Koklass Pheasant"'].join('\n'));
});

test('with no decision the header stands alone', async () => {
  assert.equal(await copied(await openRows(rowsNamed('a.jpg'))), 'filename,species');
});

test('quotation marks are doubled; commas, blanks and markup stand as they are', async () => {
  const names = ['the "big" one.jpg', 'a, b.jpg', '<b>&.jpg', 'Érable 鳥.jpg'];
  const page = await openRows(rowsNamed(...names));
  await ownName(page, 0).fill('My "rare" bird, 2nd');
  for (const card of [1, 2, 3]) await guess(page, card, 0).click();
  assert.equal(await copied(page), [
    'filename,species', '"the ""big"" one.jpg","My ""rare"" bird, 2nd"',
    '"a, b.jpg","European Robin"', '"<b>&.jpg","European Robin"',
    '"Érable 鳥.jpg","European Robin"'].join('\n'));
});

test('a choice for a file that is no longer on the page is not copied', async () => {
  const page = await openRows(rowsNamed('a.jpg'));
  await page.evaluate(
    "localStorage.setItem('ornivo.review.' + location.pathname, '{\"gone.jpg\":1}')");
  await page.reload();
  assert.equal(await copied(page), 'filename,species');
});

test('the button says so for a moment, then is itself again', async () => {
  const page = await openRows(rowsNamed('a.jpg'));
  // From here on only the test lets time pass, however slow the machine is.
  await page.clock.install({ time: 0 });
  await page.clock.pauseAt(3_600_000);
  await copied(page);
  await page.clock.runFor(1300);
  assert.equal(await button(page).textContent(), 'Copied');
  await page.clock.runFor(200);
  assert.equal(await button(page).textContent(), 'Copy decisions');
});

for (const [what, refusal] of [['refuses', rejects], ['is missing', lacks]]) {
  test(`where the clipboard ${what}, the list is selected in a box at the foot`, async () => {
    const page = await openRefusing(refusal, rowsNamed('a.jpg', 'b.jpg'));
    await page.keyboard.press('1');
    await button(page).click();
    const box = page.locator('textarea');
    await box.waitFor();
    const text = 'filename,species\n"a.jpg","European Robin"';
    assert.equal(await box.inputValue(), text);
    assert.equal(await page.evaluate(() => getSelection().toString()), text);
    assert.ok((await box.boundingBox()).height >= 140);
    assert.ok(await box.evaluate((area) =>
      !document.querySelector('footer').nextElementSibling || area.previousElementSibling.matches('footer')));
    assert.equal(await button(page).textContent(), 'Copy decisions');
  });
}

test('the box is made once and takes the newest list', async () => {
  const page = await openRefusing(rejects, rowsNamed('a.jpg', 'b.jpg'));
  await button(page).click();
  await page.locator('textarea').waitFor();
  await guess(page, 1, 2).click();
  await button(page).click();
  await page.waitForFunction(() => document.querySelector('textarea').value.includes('Dunnock'));
  assert.equal(await page.locator('textarea').count(), 1);
});

test('keys pressed in the box decide nothing', async () => {
  const page = await openRefusing(rejects, rowsNamed('a.jpg', 'b.jpg'));
  await button(page).click();
  await page.locator('textarea').press('1');
  await page.locator('textarea').press('j');
  const state = await stateOf(page);
  assert.deepEqual([state.current, state.done], [[0], []]);
});

test('a choice of a guess that is not there makes the copying fail, with nothing copied', async () => {
  const page = await openRows([['a.jpg', [ROBIN, WREN]], ['b.jpg', [ROBIN]]]);
  await copied(page);
  await page.evaluate(() => navigator.clipboard.writeText('from before'));
  await page.locator('#copy', { hasText: /^Copy decisions$/ }).waitFor();
  await page.keyboard.press('3');
  const failed = page.waitForEvent('pageerror');
  await button(page).click();
  assert.ok((await failed) instanceof Error);
  assert.equal(await page.evaluate(() => navigator.clipboard.readText()), 'from before');
  assert.equal(await button(page).textContent(), 'Copy decisions');
  assert.equal(await page.locator('textarea').count(), 0);
});
