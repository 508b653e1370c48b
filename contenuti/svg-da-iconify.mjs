// Writes one SVG file for each line "set:icon<TAB>output" read from standard
// input, taking the icons from the installed @iconify-json packages.
// Usage: node svg-da-iconify.mjs <node_modules folder> < list
import { readFileSync, writeFileSync } from 'node:fs';
import { join } from 'node:path';

const moduli = process.argv[2];
const insiemi = new Map();
function insieme(nome) {
  if (!insiemi.has(nome))
    insiemi.set(nome, JSON.parse(readFileSync(join(moduli, '@iconify-json', nome, 'icons.json'), 'utf8')));
  return insiemi.get(nome);
}

// An alias may point at another alias and add its own flips and rotations;
// the sets used here only need the plain parent chain.
function icona(dati, nome) {
  if (dati.icons[nome]) return dati.icons[nome];
  const alias = dati.aliases && dati.aliases[nome];
  if (!alias) return null;
  const padre = icona(dati, alias.parent);
  return padre && { ...padre, ...alias, body: padre.body };
}

let errori = 0;
for (const riga of readFileSync(0, 'utf8').split('\n')) {
  if (!riga.trim()) continue;
  const [fonte, uscita] = riga.split('\t');
  const [nomeInsieme, nomeIcona] = fonte.split(':');
  const dati = insieme(nomeInsieme);
  const i = icona(dati, nomeIcona);
  if (!i) {
    console.error(`manca l'immagine ${fonte}`);
    errori++;
    continue;
  }
  const w = i.width ?? dati.width ?? 16, h = i.height ?? dati.height ?? 16;
  const l = i.left ?? dati.left ?? 0, t = i.top ?? dati.top ?? 0;
  writeFileSync(uscita,
    `<svg xmlns="http://www.w3.org/2000/svg" xmlns:xlink="http://www.w3.org/1999/xlink" ` +
    `viewBox="${l} ${t} ${w} ${h}" width="${w}" height="${h}">${i.body}</svg>\n`);
}
process.exit(errori ? 1 : 0);
