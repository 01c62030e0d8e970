// Going from card to card, and the lightbox.
import assert from 'node:assert/strict';
import test from 'node:test';
import { newBrowser, openPage, openRows, reviewFolder, rowsNamed, stateOf } from './support.mjs';

const four = () => openRows(rowsNamed('a.jpg', 'b.jpg', 'c.jpg', 'd.mov'));
const current = async (page) => (await stateOf(page)).current[0];

for (const [forth, back] of [['j', 'k'], ['ArrowDown', 'ArrowUp']]) {
  test(`${forth} goes to the next card and ${back} to the one before, as far as there are any`, async () => {
    const page = await four();
    await page.keyboard.press(back);
    assert.equal(await current(page), 0);
    const seen = [];
    for (const key of [forth, forth, forth, forth, back]) {
      await page.keyboard.press(key);
      seen.push(await current(page));
    }
    assert.deepEqual(seen, [1, 2, 3, 3, 2]);
  });
}

test('J and K in upper case do nothing', async () => {
  const page = await four();
  await page.keyboard.press('j');
  await page.keyboard.press('Shift+J');
  await page.keyboard.press('Shift+K');
  assert.equal(await current(page), 1);
});

test('the keys of the page do not scroll it as well; others are left alone', async () => {
  const page = await four();
  const prevented = await page.evaluate(() => ['1', 'j', 'k', 'ArrowDown', 'ArrowUp', 'Escape', 'x']
    .map((key) => {
      const event = new KeyboardEvent('keydown', { key, bubbles: true, cancelable: true });
      document.body.dispatchEvent(event);
      return event.defaultPrevented;
    }));
  assert.deepEqual(prevented, [true, true, true, true, true, false, false]);
});

/** How far the current card's middle is from the window's, once the scrolling has come to rest. */
const offCentre = (page) => page.evaluate(async () => {
  const top = () => document.querySelector('.card.on').getBoundingClientRect().top;
  for (let last = NaN, still = 0; still < 10; last = top()) {
    await new Promise(requestAnimationFrame);
    still = top() === last ? still + 1 : 0;
  }
  const { top: start, height } = document.querySelector('.card.on').getBoundingClientRect();
  return start + height / 2 - innerHeight / 2;
});

for (const reducedMotion of ['reduce', 'no-preference']) {
  test(`the card gone to ends in the middle of the window (motion: ${reducedMotion})`, async () => {
    const names = Array.from({ length: 40 }, (_, i) => `${i}.jpg`);
    const page = await openRows(rowsNamed(...names), { reducedMotion });
    for (let i = 0; i < 20; ++i) await page.keyboard.press('j');
    assert.equal(await current(page), 20);
    const distance = await offCentre(page);
    assert.ok(Math.abs(distance) < 60, `it is ${distance} px off`);
  });
}

test('a click elsewhere in a card makes it current', async () => {
  const page = await four();
  await page.locator('#c2 .file').click();
  assert.equal(await current(page), 2);
  await page.locator('#c1 [data-own]').click();
  assert.equal(await current(page), 1);
});

test('a click on a photograph opens it full size, and a click on that closes it', async () => {
  const page = await four();
  const box = page.locator('#lb');
  assert.equal(await box.isVisible(), false);
  await page.locator('#c1 img').click();
  assert.equal(await box.isVisible(), true);
  assert.equal(await box.locator('img').evaluate((image) => image.src),
    await page.locator('#c1 img').evaluate((image) => image.src));
  assert.equal(await box.locator('img').getAttribute('alt'), '');
  await box.click({ position: { x: 5, y: 5 } });
  assert.equal(await box.isVisible(), false);
  assert.equal(await current(page), 0);
});

test('Escape closes the lightbox', async () => {
  const page = await four();
  await page.locator('#c0 img').click();
  await page.keyboard.press('Escape');
  assert.equal(await page.locator('#lb').isVisible(), false);
  await page.keyboard.press('Escape');
  assert.equal(await page.locator('#lb').isVisible(), false);
});

test('a click on a clip belongs to its player', async () => {
  const page = await four();
  // There is no such file, and over a clip that can't be played browsers differ in what the mouse hits.
  await page.locator('#c3 video').dispatchEvent('click');
  assert.equal(await page.locator('#lb').isVisible(), false);
});

test('with motion the page scrolls smoothly, without it at once', async () => {
  const behaviours = [];
  for (const reducedMotion of ['no-preference', 'reduce']) {
    const context = await newBrowser({ reducedMotion });
    await context.addInitScript(() => {
      Element.prototype.scrollIntoView = function (options) { window.asked = options; };
    });
    const page = await openPage(reviewFolder(rowsNamed('a.jpg', 'b.jpg')), context);
    await page.keyboard.press('j');
    behaviours.push(await page.evaluate(() => window.asked));
  }
  assert.deepEqual(behaviours,
    [{ block: 'center', behavior: 'smooth' }, { block: 'center', behavior: 'auto' }]);
});
