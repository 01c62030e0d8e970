// Deciding: by click, by key, and by typing a name.
import assert from 'node:assert/strict';
import test from 'node:test';
import {
  ROBIN, WREN, guess, keptBy, openRows, ownName, rowsNamed, stateOf,
} from './support.mjs';

const three = () => openRows(rowsNamed('a.jpg', 'b.jpg', 'c.jpg'));

test('at the start nothing is decided and the first card is the current one', async () => {
  assert.deepEqual(await stateOf(await three()),
    { current: [0], done: [], picked: [], typed: [], decided: '0', open: '3' });
});

test('a click on a guess picks it', async () => {
  const page = await three();
  await guess(page, 0, 1).click();
  assert.deepEqual(await stateOf(page),
    { current: [1], done: [0], picked: [[0, 1]], typed: [], decided: '1', open: '2' });
  assert.deepEqual(await keptBy(page), { 'a.jpg': 1 });
  assert.equal(await guess(page, 0, 1).getAttribute('aria-pressed'), 'true');
  assert.equal(await guess(page, 0, 0).getAttribute('aria-pressed'), 'false');
});

test('a click on the chosen guess withdraws it and stays', async () => {
  const page = await three();
  await guess(page, 0, 1).click();
  await guess(page, 0, 1).click();
  assert.deepEqual(await stateOf(page),
    { current: [1], done: [], picked: [], typed: [], decided: '0', open: '3' });
  assert.deepEqual(await keptBy(page), {});
});

test('a click on another guess changes the choice', async () => {
  const page = await three();
  await guess(page, 2, 0).click();
  await guess(page, 2, 2).click();
  assert.deepEqual((await stateOf(page)).picked, [[2, 2]]);
});

test('a click on a guess of another card does not make that card current', async () => {
  const page = await openRows(rowsNamed('a.jpg', 'b.jpg', 'c.jpg', 'd.jpg'));
  await guess(page, 2, 0).click();
  const state = await stateOf(page);
  assert.deepEqual([state.current, state.picked], [[1], [[2, 0]]]);
});

for (const [key, index] of [['1', 0], ['2', 1], ['3', 2]]) {
  test(`the key ${key} picks guess ${index} of the current card and goes on`, async () => {
    const page = await three();
    await page.keyboard.press(key);
    assert.deepEqual(await stateOf(page),
      { current: [1], done: [0], picked: [[0, index]], typed: [], decided: '1', open: '2' });
  });
}

test('a second press of the same digit decides the next card', async () => {
  const page = await three();
  await page.keyboard.press('1');
  await page.keyboard.press('1');
  assert.deepEqual(await keptBy(page), { 'a.jpg': 0, 'b.jpg': 0 });
});

test('on the last card, which stays current, a second press withdraws the choice', async () => {
  const page = await openRows(rowsNamed('a.jpg'));
  await page.keyboard.press('2');
  assert.deepEqual(await keptBy(page), { 'a.jpg': 1 });
  await page.keyboard.press('2');
  assert.deepEqual(await stateOf(page),
    { current: [0], done: [], picked: [], typed: [], decided: '0', open: '1' });
});

test('a key beyond the guesses is kept as a choice that shows no guess', async () => {
  const page = await openRows([['a.jpg', [ROBIN, WREN]], ['b.jpg', [ROBIN]]]);
  await page.keyboard.press('3');
  assert.deepEqual(await keptBy(page), { 'a.jpg': 2 });
  const state = await stateOf(page);
  assert.deepEqual([state.done, state.picked], [[0], []]);
});

test('a key pressed with a modifier belongs to the browser', async () => {
  const page = await three();
  for (const key of ['Control+2', 'Alt+1', 'Meta+3', 'Control+j']) await page.keyboard.press(key);
  assert.deepEqual(await stateOf(page),
    { current: [0], done: [], picked: [], typed: [], decided: '0', open: '3' });
});

test('a typed name is the choice, trimmed, and does not advance', async () => {
  const page = await three();
  await ownName(page, 0).pressSequentially('  Koklass Pheasant ');
  assert.deepEqual(await keptBy(page), { 'a.jpg': 'Koklass Pheasant' });
  const state = await stateOf(page);
  assert.deepEqual([state.current, state.done, state.decided], [[0], [0], '1']);
  assert.equal(await ownName(page, 0).inputValue(), '  Koklass Pheasant ');
});

test('once the focus has gone, the box shows the name as it was taken', async () => {
  const page = await three();
  await ownName(page, 0).fill('  Smew ');
  await page.locator('#c2 .file').click();
  assert.deepEqual((await stateOf(page)).typed, [[0, 'Smew']]);
});

test('digits and letters typed in the box are part of the name', async () => {
  const page = await three();
  await ownName(page, 0).pressSequentially('jk 123');
  assert.deepEqual(await keptBy(page), { 'a.jpg': 'jk 123' });
  assert.deepEqual((await stateOf(page)).current, [0]);
});

test('a typed name beats a guess, and a guess a typed name', async () => {
  const page = await three();
  await guess(page, 1, 0).click();
  await ownName(page, 1).fill('Smew');
  let state = await stateOf(page);
  assert.deepEqual([state.picked, state.typed], [[], [[1, 'Smew']]]);
  await guess(page, 1, 0).click();
  state = await stateOf(page);
  assert.deepEqual([state.picked, state.typed], [[[1, 0]], []]);
  assert.equal(await ownName(page, 1).inputValue(), '');
});

test('clearing the box withdraws the decision', async () => {
  const page = await three();
  await ownName(page, 0).fill('Smew');
  await ownName(page, 0).fill('');
  assert.deepEqual(await keptBy(page), {});
  assert.deepEqual((await stateOf(page)).done, []);
});

test('a typed name of blanks only withdraws the choice', async () => {
  const page = await three();
  await page.keyboard.press('1');
  await ownName(page, 0).fill('   ');
  assert.deepEqual(await keptBy(page), {});
});

test('two files of one name, as day folders hold them, share their choice', async () => {
  const page = await openRows(rowsNamed('a.jpg', 'b.jpg', 'a.jpg'));
  await page.keyboard.press('2');
  assert.deepEqual(await stateOf(page),
    { current: [1], done: [0, 2], picked: [[0, 1], [2, 1]], typed: [], decided: '1', open: '2' });
});

test('names that every object of the language knows are names like any other', async () => {
  const page = await openRows(rowsNamed('__proto__', 'constructor', 'toString'));
  assert.deepEqual((await stateOf(page)).done, []);
  await page.keyboard.press('1');
  assert.deepEqual((await stateOf(page)).picked, [[0, 0]]);
  await page.reload();
  assert.deepEqual((await stateOf(page)).picked, [[0, 0]]);
});

test('a guess can be reached and chosen with the keyboard alone', async () => {
  const page = await three();
  await guess(page, 0, 2).focus();
  await page.keyboard.press('Enter');
  assert.deepEqual((await stateOf(page)).picked, [[0, 2]]);
});

test('after a click the blank key withdraws nothing', async () => {
  const page = await three();
  await guess(page, 0, 0).click();
  await page.keyboard.press(' ');
  assert.deepEqual((await stateOf(page)).picked, [[0, 0]]);
});
