// Decides the shots that the window's story leaves uncertain, on the page that its run wrote, as a
// person does: one by key, one by click, one by typing. `node decide_by_hand.mjs UNCERTAIN OUT`
// writes what "Copy decisions" put on the clipboard to the file OUT.
import assert from 'node:assert/strict';
import { writeFileSync } from 'node:fs';
import test from 'node:test';
import { copied, guess, newBrowser, openPage, ownName, stateOf } from './support.mjs';

const [uncertain, out] = process.argv.slice(2);

test('three of four shots are decided and copied', async () => {
  const page = await openPage(uncertain, await newBrowser());
  const cards = await page.locator('.file').allTextContents();
  const cardOf = (name) => {
    assert.ok(cards.includes(name), `${name} has a card among ${cards}`);
    return cards.indexOf(name);
  };

  await guess(page, cardOf('clicked.jpg'), 2).click();
  await ownName(page, cardOf('typed.jpg')).click();
  await page.keyboard.type('Koklass Pheasant');
  await page.locator(`#c${cardOf('keyed.jpg')} .file`).click();
  await page.keyboard.press('2');

  const { decided, open } = await stateOf(page);
  assert.deepEqual({ decided, open }, { decided: '3', open: '1' });
  writeFileSync(out, await copied(page));
  assert.deepEqual(page.errors, []);
});
