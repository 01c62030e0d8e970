const KEY = 'ornivo.review.' + location.pathname;
const CLIP = /\.(mov|mp4|m4v)$/i;
/** Pictures that no browser shows, and those that some do. */
const RAW = /\.(raw|cr2|cr3|nef|arw|dng|orf|rw2)$/i;
const RARE = /\.(heic|heif|tiff|tif)$/i;

const byId = (id) => document.getElementById(id);
const escaped = (text) => text.replace(/&/g, '&amp;').replace(/</g, '&lt;')
  .replace(/>/g, '&gt;').replace(/"/g, '&quot;');

// ---- State ----

/** From file name to a choice: the index of a guess, or a typed name. */
let picks = loaded();
/** The index of the current card. */
let cur = 0;
/** Whether the browser refused to keep the latest choices. */
let unkept = false;

function loaded() {
  // Without a prototype, so that no file name finds a property that nobody chose.
  const none = Object.create(null);
  try {
    const kept = JSON.parse(localStorage.getItem(KEY));
    return typeof kept === 'object' && !Array.isArray(kept) ? Object.assign(none, kept) : none;
  } catch {
    return none;
  }
}

function store() {
  try {
    localStorage.setItem(KEY, JSON.stringify(picks));
    unkept = false;
  } catch {
    unkept = true;
  }
}

// ---- Cards ----

/** From a row's index to the picture for browsers that can't show the row's file. */
const standIns = new Map(STAND_INS);

/** A file that may turn out not to be shown is out of sight until it is. */
function mediaOf(row, index) {
  const source = escaped(encodeURI(row.f));
  const standIn = escaped(standIns.get(index) ?? '');
  if (CLIP.test(row.f)) {
    const poster = standIn && ` poster="${standIn}"`;
    return `<video src="${source}" controls preload="metadata" playsinline${poster}></video>`;
  }
  if (standIn && RAW.test(row.f)) return `<img src="${standIn}" alt="" loading="lazy">`;
  const trial = standIn && ' class="trial"';
  return `<img src="${source}" alt="" loading="lazy"${trial}>`;
}

function whyBare(name) {
  if (CLIP.test(name)) return 'No picture: this browser can’t play the clip, or it is no longer here.';
  return RAW.test(name) || RARE.test(name)
    ? 'No picture: this browser doesn’t show files of this kind, and there is no preview of it.'
    : 'No picture: the file is no longer here, or it can’t be read.';
}

/** The browser can't show this: its stand-in comes in its place, or else a sentence does. */
function fallBack(media) {
  const index = rowOf(media);
  const frame = media.parentElement;
  const note = document.createElement('p');
  const standIn = standIns.get(index);
  if (standIn && media.getAttribute('src') !== standIn) {
    const image = document.createElement('img');
    image.alt = '';
    image.src = standIn;
    media.replaceWith(image);
    if (media.tagName !== 'VIDEO') return;
    frame.classList.add('still');
    note.textContent = 'This browser can’t play the clip. Here is a picture from it.';
  } else {
    frame.classList.add('bare');
    frame.querySelector('p')?.remove();
    note.textContent = whyBare(ROWS[index].f);
  }
  frame.append(note);
}

function guessOf(guess, index) {
  const percent = (guess.c * 100).toFixed(1);
  return `<button type="button" class="g" data-g="${index}" aria-pressed="false">` +
    `<span class="nm">${escaped(guess.n)}</span><span class="pct">${percent}%</span>` +
    `<span class="sci">${escaped(guess.s)}</span>` +
    `<span class="meter"><i style="width:${percent}%"></i></span></button>`;
}

function cardOf(row, index) {
  const choice = picks[row.f];
  const typed = typeof choice === 'string' ? escaped(choice) : '';
  return `<article class="card" id="c${index}" data-i="${index}" aria-labelledby="f${index}">` +
    `<div class="media">${mediaOf(row, index)}</div><div class="side">` +
    `<h2 class="file" id="f${index}">${escaped(row.f)}</h2>${row.k.map(guessOf).join('')}` +
    '<label class="own"><span>Or name it yourself</span>' +
    '<input type="text" data-own placeholder="e.g. Koklass Pheasant" autocapitalize="words" ' +
    `autocomplete="off" autocorrect="off" spellcheck="false" value="${typed}"></label>` +
    '</div></article>';
}

const rowOf = (element) => Number(element.closest('.card').dataset.i);

// These don't rise from the media, so they are caught on the way down; before any can happen.
byId('cards').addEventListener('error', (event) => fallBack(event.target), true);
byId('cards').addEventListener('load', (event) => event.target.classList.remove('trial'), true);
byId('cards').addEventListener('loadedmetadata', (event) => {
  // Of a clip whose pictures it can't decode a browser may play the sound.
  if (!event.target.videoWidth) fallBack(event.target);
}, true);

byId('cards').innerHTML = ROWS.map(cardOf).join('');

// ---- Painting ----

const cards = byId('cards').children;
/** Rows by file name: day folders may hold files of one name, and those share their choice. */
const rowsNamed = new Map();
ROWS.forEach((row, i) => rowsNamed.set(row.f, [...(rowsNamed.get(row.f) ?? []), i]));
/** Rows whose look may not fit the state, so that one key doesn't touch every card. */
const stale = new Set(ROWS.keys());
/** The card painted as the current one. */
let painted = null;

function paint() {
  const waiting = [...stale];
  stale.clear();
  waiting.forEach(paintCard);
  paintCurrent();
  const decided = Object.keys(picks).length;
  byId('n-done').textContent = decided;
  byId('n-left').textContent = ROWS.length - decided;
}

function paintCard(i) {
  const card = cards[i];
  const choice = picks[ROWS[i].f];
  const typed = typeof choice === 'string';
  card.classList.toggle('done', choice !== undefined);
  card.querySelectorAll('.g').forEach((guess, j) => {
    guess.classList.toggle('pick', j === choice);
    guess.setAttribute('aria-pressed', j === choice);
  });
  const own = card.querySelector('[data-own]');
  own.classList.toggle('pick', typed);
  // What is being typed is left alone until the focus has gone.
  if (own === document.activeElement) stale.add(i);
  else own.value = typed ? choice : '';
}

function paintCurrent() {
  const card = cards[cur] ?? null;
  if (card === painted) return;
  painted?.classList.remove('on');
  painted?.removeAttribute('aria-current');
  card?.classList.add('on');
  card?.setAttribute('aria-current', 'true');
  painted = card;
}

// ---- Deciding ----

function settle(name) {
  rowsNamed.get(name).forEach((i) => stale.add(i));
  store();
  paint();
}

function pick(i, j) {
  const row = ROWS[i];
  if (!row) return;
  if (picks[row.f] === j) delete picks[row.f];
  else picks[row.f] = j;
  settle(row.f);
  if (row.f in picks && i < ROWS.length - 1) move(1);
}

function nameRow(i, text) {
  const file = ROWS[i].f;
  if (text.trim()) picks[file] = text.trim();
  else delete picks[file];
  settle(file);
}

function move(d) {
  cur = Math.max(0, Math.min(ROWS.length - 1, cur + d));
  paint();
  const still = matchMedia('(prefers-reduced-motion: reduce)').matches;
  cards[cur]?.scrollIntoView({ block: 'center', behavior: still ? 'auto' : 'smooth' });
}

function reset() {
  picks = Object.create(null);
  try {
    localStorage.removeItem(KEY);
  } catch {
    // Where nothing can be kept, nothing was.
  }
  unkept = false;
  cur = 0;
  ROWS.forEach((_, i) => stale.add(i));
  paint();
}

// ---- The lightbox ----

const box = byId('lb');

function openBox(image) {
  box.firstElementChild.src = image.src;
  box.hidden = false;
}

function closeBox() {
  box.hidden = true;
  box.firstElementChild.removeAttribute('src');
}

// ---- Copying ----

const quoted = (text) => `"${text.replace(/"/g, '""')}"`;

function decisions() {
  const lines = ROWS.filter((row) => row.f in picks).map((row) => {
    const choice = picks[row.f];
    return quoted(row.f) + ',' + quoted(typeof choice === 'string' ? choice : row.k[choice].n);
  });
  return ['filename,species', ...lines].join('\n');
}

let copied;

async function copy() {
  const text = decisions();
  try {
    await navigator.clipboard.writeText(text);
  } catch {
    offer(text);
    return;
  }
  byId('copy').textContent = 'Copied';
  clearTimeout(copied);
  copied = setTimeout(() => { byId('copy').textContent = 'Copy decisions'; }, 1400);
}

let fallback;

function offer(text) {
  if (!fallback) {
    fallback = document.createElement('textarea');
    fallback.setAttribute('aria-label', 'Copy decisions');
    document.querySelector('.page').append(fallback);
  }
  fallback.value = text;
  fallback.focus();
  fallback.select();
}

// ---- Mouse and keyboard ----

byId('cards').addEventListener('click', (event) => {
  const card = event.target.closest('.card');
  if (!card) return;
  const guess = event.target.closest('.g');
  if (guess) {
    // After the mouse the blank key scrolls the page, as one expects, and withdraws nothing.
    if (event.detail) guess.blur();
    pick(rowOf(card), Number(guess.dataset.g));
  } else if (event.target.matches('img')) {
    openBox(event.target);
  } else {
    cur = rowOf(card);
    paint();
  }
});

byId('cards').addEventListener('input', (event) => {
  if (event.target.matches('[data-own]')) nameRow(rowOf(event.target), event.target.value);
});

// Digits are part of a name in a typed box.
byId('cards').addEventListener('keydown', (event) => {
  if (event.target.matches('[data-own]')) event.stopPropagation();
});

const ACTIONS = {
  1: () => pick(cur, 0),
  2: () => pick(cur, 1),
  3: () => pick(cur, 2),
  j: () => move(1),
  ArrowDown: () => move(1),
  k: () => move(-1),
  ArrowUp: () => move(-1),
};

document.addEventListener('keydown', (event) => {
  if (/^(TEXTAREA|INPUT)$/.test(event.target.tagName)) return;
  if (event.key === 'Escape' && !box.hidden) closeBox();
  // With a modifier a key belongs to the browser: Ctrl+1 changes the tab and decides nothing.
  if (event.ctrlKey || event.altKey || event.metaKey || !Object.hasOwn(ACTIONS, event.key)) return;
  event.preventDefault();
  ACTIONS[event.key]();
});

box.addEventListener('click', closeBox);
byId('copy').addEventListener('click', copy);
byId('reset').addEventListener('click', reset);
addEventListener('beforeunload', (event) => {
  if (unkept && Object.keys(picks).length) event.preventDefault();
});

paint();
