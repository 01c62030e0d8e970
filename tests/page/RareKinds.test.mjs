// Files that browsers can't show, from a run to the picture on the page, or to the words for none.
import assert from 'node:assert/strict';
import { readdirSync, rmSync, writeFileSync } from 'node:fs';
import { join } from 'node:path';
import test from 'node:test';
import { newBrowser, newFolder, openPage, openRows, rowsNamed, runProgram, writeClip } from './support.mjs';

const HEVC = ['-c:v', 'libx265', '-x265-params', 'log-level=none', '-tag:v', 'hvc1'];
const NO_PREVIEW =
  'No picture: this browser doesn’t show files of this kind, and there is no preview of it.';
const NO_CLIP = 'No picture: this browser can’t play the clip, or it is no longer here.';
const NO_FILE = 'No picture: the file is no longer here, or it can’t be read.';
const A_STILL = 'This browser can’t play the clip. Here is a picture from it.';

let made;
/** What a run leaves of them in a new destination; the source is made once. */
function sortedFolder() {
  if (!made) {
    made = newFolder();
    const size = '480x320';
    runProgram('write_rare_kinds', [made]);
    writeClip(join(made, 'silent.mov'), { size, coding: HEVC });
    writeClip(join(made, 'with sound.mov'), { size, coding: HEVC, sound: true });
    writeClip(join(made, 'plays.mp4'), { size });
  }
  const destination = newFolder();
  runProgram('ornivo-cli', ['sort', made, destination, '--level', 'confirmed']);
  return join(destination, '_Uncertain');
}

/** Notes, in the page, how a picture looked at the moment when it turned out to be broken. */
async function noteBroken(context) {
  await context.addInitScript(() => {
    globalThis.seenBroken = [];
    addEventListener('error', ({ target }) => {
      if (target.tagName === 'IMG') seenBroken.push(getComputedStyle(target).visibility);
    }, true);
  });
}

/** Goes to each card, so that what is read only when it comes near is read. */
async function eachCard(page, look) {
  const seen = {};
  for (const card of await page.locator('.card').all()) {
    await card.scrollIntoViewIfNeeded();
    seen[await card.locator('.file').textContent()] = await look(card, page);
  }
  return seen;
}

const settled = (card) => card.locator('.media').evaluate((media) => new Promise((done) => {
  const look = () => {
    const [shown] = media.children;
    if (media.classList.contains('bare')) return done([media.innerText.trim()]);
    if (shown.tagName === 'VIDEO' && shown.videoWidth) return done(['a clip']);
    if (shown.tagName === 'IMG' && shown.naturalWidth && !shown.matches('.trial')) {
      return done([`${shown.naturalWidth} × ${shown.naturalHeight}`, decodeURI(shown.src)
        .split('_Uncertain/')[1], ...(media.innerText.trim() ? [media.innerText.trim()] : [])]);
    }
    return requestAnimationFrame(look);
  };
  look();
}));

const WHOLE = {
  'a raw.dng': ['720 × 480', '.review-pictures/a raw.dng.jpg'],
  'pair.dng': ['480 × 320', 'pair.jpg'],
  'phone.heic': ['720 × 480', '.review-pictures/phone.heic.jpg'],
  'plays.mp4': ['a clip'],
  'scan.tif': ['720 × 480', '.review-pictures/scan.tif.jpg'],
  'silent.mov': ['480 × 320', '.review-pictures/silent.mov.jpg', A_STILL],
  'with sound.mov': ['480 × 320', '.review-pictures/with sound.mov.jpg', A_STILL],
};

test('every card shows a picture, and none a broken one on the way', async () => {
  const folder = sortedFolder();
  const context = await newBrowser();
  await noteBroken(context);
  const page = await openPage(folder, context);
  assert.deepEqual(await eachCard(page, settled), WHOLE);
  const heights = await page.locator('.card').evaluateAll(
    (cards) => new Set(cards.map((card) => card.offsetHeight)).size);
  assert.equal(heights, 1, 'no card has grown');
  // The two that some other browser might have shown.
  assert.deepEqual(await page.evaluate(() => seenBroken), ['hidden', 'hidden']);
  assert.deepEqual(page.errors, []);
});

test('the lightbox shows what the card shows', async () => {
  const page = await openPage(sortedFolder());
  const boxed = await eachCard(page, async (card) => {
    const [size] = await settled(card);
    if (size === 'a clip') return [size];
    await card.locator('.media img').click();
    await page.waitForFunction(() => document.querySelector('#lb img').naturalWidth > 0);
    const seen = await page.locator('#lb img').evaluate(
      (image) => `${image.naturalWidth} × ${image.naturalHeight}`);
    await page.keyboard.press('Escape');
    return [seen];
  });
  assert.deepEqual(boxed,
    Object.fromEntries(Object.entries(WHOLE).map(([name, [size]]) => [name, [size]])));
  assert.deepEqual(page.errors, []);
});

test('without the posters each card says why it has no picture', async () => {
  const folder = sortedFolder();
  rmSync(join(folder, '.review-pictures'), { recursive: true });
  const page = await openPage(folder);
  assert.deepEqual(await eachCard(page, settled), {
    ...WHOLE,
    'a raw.dng': [NO_PREVIEW],
    'phone.heic': [NO_PREVIEW],
    'scan.tif': [NO_PREVIEW],
    'silent.mov': [NO_CLIP],
    'with sound.mov': [NO_CLIP],
  });
  assert.equal(await page.locator('.card img:visible').count(), 1);
});

test('a filed shot takes its poster along, and its card says that nothing is there', async () => {
  const folder = sortedFolder();
  const list = join(newFolder(), 'decisions.csv');
  writeFileSync(list, 'a raw.dng,Wren\npair.dng,Wren\nplays.mp4,Wren\n');
  runProgram('ornivo-cli', ['file-decisions', join(folder, '..'), list]);
  assert.ok(!readdirSync(join(folder, '.review-pictures')).includes('a raw.dng.jpg'));
  const page = await openPage(folder);
  assert.deepEqual(await eachCard(page, settled), {
    ...WHOLE, 'a raw.dng': [NO_PREVIEW], 'pair.dng': [NO_PREVIEW], 'plays.mp4': [NO_CLIP],
  });
});

test('a photograph that is gone says so, and can be decided all the same', async () => {
  const page = await openRows(rowsNamed('gone.png'));
  assert.deepEqual(await eachCard(page, settled), { 'gone.png': [NO_FILE] });
  await page.keyboard.press('1');
  assert.equal(await page.locator('#n-done').textContent(), '1');
});
