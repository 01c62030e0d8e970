// The whole way of an uncertain shot: left by a run, decided in the page, filed by the program.
import assert from 'node:assert/strict';
import { readFileSync, readdirSync, writeFileSync } from 'node:fs';
import { join } from 'node:path';
import test from 'node:test';
import {
  copied, guess, newBrowser, newFolder, openPage, ownName, reviewFolder, rowsNamed, runProgram,
  stateOf,
} from './support.mjs';

/** The files of a folder and its subfolders, as paths below it, in plain order. */
const filesBelow = (folder, below = '') => readdirSync(join(folder, below), { withFileTypes: true })
  .flatMap((entry) => (entry.isDirectory()
    ? filesBelow(folder, join(below, entry.name)) : [join(below, entry.name)]))
  .sort();

/** Pictures of one plain colour, which is no bird, so that a run is certain of none of them. */
function sourceFolder(...names) {
  const folder = reviewFolder(rowsNamed(...names));
  writeFileSync(join(folder, 'the "big" one.xmp'), '<x:xmpmeta/>');
  return folder;
}

test('what a run was not certain of is decided in the page and filed by the program', async () => {
  const names = [
    '<b>&.jpg', 'a bird.jpg', 'b, c.jpg', 'plain.jpg', 'the "big" one.jpg', 'étang.jpg',
  ];
  const source = sourceFolder(...names);
  const destination = newFolder();
  runProgram('ornivo-cli', ['sort', source, destination, '--level', 'confirmed']);
  const uncertain = join(destination, '_Uncertain');
  assert.deepEqual(filesBelow(destination), [
    ...names, 'review.csv', 'review.html', 'the "big" one.xmp',
  ].map((name) => join('_Uncertain', name)).sort());

  const page = await openPage(uncertain, await newBrowser());
  const cards = await page.locator('.file').allTextContents();
  assert.deepEqual([...cards].sort(), [...names].sort());
  const cardOf = (name) => cards.indexOf(name);
  const guessed = (name, index) =>
    guess(page, cardOf(name), index).locator('.nm').textContent();

  // One decision by click, three by typing, one by key; one shot stays open.
  const clicked = await guessed('b, c.jpg', 1);
  await guess(page, cardOf('b, c.jpg'), 1).click();
  await ownName(page, cardOf('the "big" one.jpg')).fill('Koklass Pheasant');
  await ownName(page, cardOf('<b>&.jpg')).fill('Bird & <Co>');
  await ownName(page, cardOf('étang.jpg')).fill('Héron "cendré"');
  const pressed = await guessed('a bird.jpg', 0);
  await page.locator(`#c${cardOf('a bird.jpg')} .file`).click();
  await page.keyboard.press('1');
  assert.equal((await stateOf(page)).open, '1');

  const pictures = Object.fromEntries(names.map((name) => [name, readFileSync(join(source, name))]));
  const list = join(newFolder(), 'decisions.csv');
  writeFileSync(list, await copied(page));
  runProgram('ornivo-cli', ['file-decisions', destination, list]);

  const filed = {
    '<b>&.jpg': 'Bird & <Co>', 'a bird.jpg': pressed, 'b, c.jpg': clicked,
    'plain.jpg': '_Uncertain', 'the "big" one.jpg': 'Koklass Pheasant',
    'étang.jpg': 'Héron "cendré"',
  };
  assert.deepEqual(filesBelow(destination), [
    ...names.map((name) => join(filed[name], name)),
    join('Koklass Pheasant', 'the "big" one.xmp'),
    join('_Uncertain', 'review.csv'), join('_Uncertain', 'review.html'),
  ].sort());
  for (const name of names) {
    assert.ok(readFileSync(join(destination, filed[name], name)).equals(pictures[name]),
      `${name} arrived as it was`);
  }
  assert.deepEqual(page.errors, []);
});
