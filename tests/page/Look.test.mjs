// How the page looks: its palettes, its sizes, its manners on a small screen.
import assert from 'node:assert/strict';
import test from 'node:test';
import { guess, newBrowser, openPage, openRows, ownName, reviewFolder, rowsNamed } from './support.mjs';

/** Property, light, dark. */
const PALETTE = [
  ['--bg', '#f4f1e8', '#0e1316'],
  ['--fg', '#141a1d', '#e9e5db'],
  ['--card', '#fbf9f3', '#161c20'],
  ['--rule', '#d6cfc0', '#283136'],
  ['--dim', '#666d72', '#9aa2a7'],
  ['--faint', '#8b9095', '#6f777d'],
  ['--wattle', '#b8821f', '#e3ae45'],
  ['--sage', '#4f6a54', '#86a68b'],
];

const rgb = (hex) => `rgb(${[1, 3, 5].map((at) => parseInt(hex.slice(at, at + 2), 16)).join(', ')})`;

/** The computed style of an element, by property. */
const styleOf = (page, selector, ...properties) => page.locator(selector).first().evaluate(
  (element, wanted) => wanted.map((property) => getComputedStyle(element)[property]), properties);

for (const [column, colorScheme] of [[1, 'light'], [2, 'dark']]) {
  test(`the ${colorScheme} palette is the one the person's system asks for`, async () => {
    const page = await openRows(rowsNamed('a.jpg'), { colorScheme });
    const seen = await page.evaluate((names) => names.map((name) => {
      const probe = document.body.appendChild(document.createElement('i'));
      probe.style.color = `var(${name})`;
      return getComputedStyle(probe).color;
    }), PALETTE.map(([name]) => name));
    assert.deepEqual(seen, PALETTE.map((row) => rgb(row[column])));
    assert.deepEqual(await styleOf(page, 'body', 'backgroundColor', 'color'),
      [rgb(PALETTE[0][column]), rgb(PALETTE[1][column])]);
    assert.deepEqual(await styleOf(page, '.card', 'backgroundColor'), [rgb(PALETTE[2][column])]);
  });
}

test('type, sizes and layers are as the design has them', async () => {
  const page = await openRows(rowsNamed('a.jpg', 'b.mov'));
  const table = [
    ['body', { fontSize: '15px', lineHeight: '23.25px' }],
    ['.page', { maxWidth: '1000px', padding: '40px 20px 100px' }],
    ['h1', { fontSize: '29px', fontWeight: '600' }],
    ['header', { borderBottomWidth: '2px', borderBottomStyle: 'solid' }],
    ['.bar', { position: 'sticky', top: '0px', zIndex: '9', flexWrap: 'wrap' }],
    ['.tally b', { fontSize: '20px', fontVariantNumeric: 'tabular-nums' }],
    ['.tally span', { fontSize: '10px', letterSpacing: '0.8px', textTransform: 'uppercase' }],
    ['.card', { columnGap: '20px', padding: '14px', scrollMarginTop: '96px', opacity: '1' }],
    ['.card.on', { outlineWidth: '2px', outlineOffset: '-1px', outlineColor: 'rgb(184, 130, 31)' }],
    ['.card img', { maxHeight: '300px', objectFit: 'contain', cursor: 'zoom-in' }],
    ['.card video', { maxHeight: '300px', cursor: 'auto' }],
    ['.meter', { height: '3px' }],
    ['#lb', { position: 'fixed', zIndex: '50', cursor: 'zoom-out', backgroundColor: 'rgba(8, 11, 13, 0.95)' }],
  ];
  for (const [selector, wanted] of table) {
    const seen = await styleOf(page, selector, ...Object.keys(wanted));
    assert.deepEqual(seen, Object.values(wanted), selector);
  }
  for (const selector of ['h1', '.nm']) {
    assert.match((await styleOf(page, selector, 'fontFamily'))[0], /^Georgia/, selector);
  }
  for (const selector of ['.file', '.pct', 'kbd']) {
    assert.match((await styleOf(page, selector, 'fontFamily'))[0], /^ui-monospace/, selector);
  }
  assert.match((await styleOf(page, '.card', 'gridTemplateColumns'))[0], /^[\d.]+px 300px$/);
  assert.deepEqual(await page.locator('.help kbd').allTextContents(), ['1', '2', '3', 'J', 'K']);
  assert.equal(await page.locator('.help b').textContent(),
    'If it is none of them, type the bird yourself');
});

test('a decided card is at half opacity, and its choice has the accent', async () => {
  const page = await openRows(rowsNamed('a.jpg', 'b.jpg', 'c.jpg'));
  await guess(page, 0, 1).click();
  await ownName(page, 2).fill('Smew');
  await page.mouse.move(0, 0);
  const accent = ['rgb(184, 130, 31)', 'color(srgb 0.721569 0.509804 0.121569 / 0.1)'];
  for (const chosen of ['.g.pick', '.own input.pick']) {
    assert.deepEqual(await styleOf(page, chosen, 'borderTopColor', 'backgroundColor'), accent, chosen);
  }
  assert.deepEqual(await styleOf(page, '.card.done', 'opacity'), ['0.5']);
});

test('a guess is outlined under the mouse', async () => {
  const page = await openRows(rowsNamed('a.jpg'));
  assert.deepEqual(await styleOf(page, '.g', 'borderTopColor'), ['rgba(0, 0, 0, 0)']);
  await guess(page, 0, 0).hover();
  assert.deepEqual(await styleOf(page, '.g', 'borderTopColor'), ['rgb(214, 207, 192)']);
});

for (const [width, columns] of [[740, 2], [739, 1]]) {
  test(`at ${width} px the cards have ${columns} column${columns > 1 ? 's' : ''}`, async () => {
    const page = await openRows(rowsNamed('a.jpg'), { viewport: { width, height: 800 } });
    const [tracks] = await styleOf(page, '.card', 'gridTemplateColumns');
    assert.equal(tracks.split(' ').length, columns);
  });
}

for (const [width, opened] of [[360, 'a phone'], [320, 'a small phone'], [1280, 'a desk']]) {
  test(`nothing reaches beyond the window of ${opened}, ${width} px wide`, async () => {
    const long = `${'IMG_0123456789'.repeat(12)}.jpg`;
    const rows = [[long, [[`Genus_${'x'.repeat(90)}`, 0.9]]], ...rowsNamed('b.jpg', 'c.mov')];
    const page = await openRows(rows, { viewport: { width, height: 740 } });
    const beyond = await page.evaluate(() => [...document.querySelectorAll('body *')]
      .filter((element) => element.getBoundingClientRect().right > innerWidth + 0.5)
      .map((element) => `${element.tagName}.${element.className}`));
    assert.deepEqual(beyond, []);
    assert.equal(await page.evaluate(() => document.documentElement.scrollWidth), width);
  });
}

test('the bar stays in sight', async () => {
  const page = await openRows(rowsNamed('a.jpg', 'b.jpg', 'c.jpg', 'd.jpg', 'e.jpg'));
  await page.evaluate(() => scrollTo(0, 900));
  await page.waitForFunction(() => scrollY > 500);
  assert.equal((await page.locator('.bar').boundingBox()).y, 0);
});

test('the lightbox covers the window and holds the photograph within it', async () => {
  const page = await openRows(rowsNamed('a.jpg'));
  await page.locator('#c0 img').click();
  assert.deepEqual(await page.locator('#lb').boundingBox(), { x: 0, y: 0, width: 1280, height: 800 });
  assert.equal(await page.locator('#lb img').evaluate((image) => getComputedStyle(image).maxHeight),
    '736px');
});

test('where motion is unwelcome nothing moves', async () => {
  const context = await newBrowser({ reducedMotion: 'reduce' });
  const page = await openPage(reviewFolder(rowsNamed('a.jpg')), context);
  for (const selector of ['.card', '.g', '#copy']) {
    const [property, duration] = await styleOf(page, selector, 'transitionProperty', 'transitionDuration');
    assert.ok(property === 'none' || duration === '0s', `${selector}: ${property} ${duration}`);
  }
});

test('the keyboard’s focus can be seen', async () => {
  const page = await openRows(rowsNamed('a.jpg'));
  for (const wanted of ['copy', 'reset', 'g', 'g', 'g', 'own']) {
    await page.keyboard.press('Tab');
    const seen = await page.evaluate(() => {
      const { outlineStyle, outlineWidth } = getComputedStyle(document.activeElement);
      const { id, className, dataset } = document.activeElement;
      return ['own' in dataset ? 'own' : id || className, outlineStyle, outlineWidth];
    });
    assert.deepEqual(seen, [wanted, 'solid', '2px']);
  }
});

test('a screen reader hears which card is current and what belongs to it', async () => {
  const page = await openRows(rowsNamed('a.jpg', 'b.jpg'));
  await page.keyboard.press('j');
  assert.equal(await page.getByRole('article', { name: 'b.jpg' }).getAttribute('aria-current'), 'true');
  assert.equal(await page.getByRole('article', { name: 'a.jpg' }).getAttribute('aria-current'), null);
});
