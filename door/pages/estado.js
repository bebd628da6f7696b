// The status page: the printers, and what happens, as it happens.
'use strict';

const WORDS = {
  arrancando: 'Arrancando', lista: 'Lista', imprimiendo: 'Imprimiendo', sin_respuesta: 'No contesta', detenida: 'Detenida',
};
const KINDS = {
  trabajo: 'Trabajo', impresora: 'Impresora', documento: 'Comprobante', cierre: 'Cierre Z', estado: 'Estado', alarma: 'Atención',
  perdidos: 'Hubo sucesos que ya no se guardan',
};
const STATES = {
  en_cola: 'en cola', imprimiendo: 'imprimiendo', hecho: 'hecho', no_hecho: 'no se hizo', no_se_sabe: 'no se sabe', cancelado: 'cancelado',
};
const MOST = 30;
const PAUSE = 3000;
let key = sessionStorage.getItem('clave') || '';
let last = '';

const at = (id) => document.getElementById(id);
const pause = (time) => new Promise((done) => { setTimeout(done, time); });

function line(tag, text, name) {
  const element = document.createElement(tag);
  element.textContent = text;
  if (name) element.className = name;
  return element;
}

async function ask(path, options = {}) {
  const headers = { ...options.headers };
  if (key) headers.Authorization = `Bearer ${key}`;
  const answer = await fetch(path, { ...options, headers });
  at('llave').hidden = answer.status !== 401 && answer.status !== 403;
  if (!answer.ok) throw new Error(answer.status === 401 ? 'Hace falta la clave de la caja' : `La puerta contestó ${answer.status}`);
  return answer;
}

function printer(shown) {
  const item = line('li', '', shown.conexion);
  item.append(line('h3', shown.modelo ? `${shown.id} · ${shown.modelo}` : shown.id));
  item.append(line('p', WORDS[shown.conexion] || shown.conexion));
  if (shown.texto) item.append(line('p', shown.texto));
  const queue = [`En cola: ${shown.en_cola}`];
  if (shown.pendientes) queue.push(`sin saberse: ${shown.pendientes}`);
  item.append(line('p', queue.join(' · ')));
  return item;
}

async function printers() {
  const { impresoras } = await (await ask('/v1/impresoras')).json();
  at('impresoras').replaceChildren(...impresoras.map(printer));
}

function words(news) {
  const told = news.datos;
  const number = told.comprobante?.numero || told.informe?.numero || '';
  const parts = [news.impresora, KINDS[news.tipo] || news.tipo, told.trabajo, STATES[told.estado] || WORDS[told.conexion], number, told.texto];
  return parts.filter(Boolean).join(' · ');
}

function show(news) {
  const item = line('li', '');
  const when = line('time', new Date(news.momento).toLocaleTimeString('es-AR'));
  when.dateTime = news.momento;
  item.append(when, words(news));
  at('sucesos').prepend(item);
  while (at('sucesos').children.length > MOST) at('sucesos').lastChild.remove();
}

function read(block) {
  const data = block.split('\n').filter((row) => row.startsWith('data: ')).map((row) => row.slice(6)).join('\n');
  if (!data) return;
  const news = JSON.parse(data);
  last = String(news.suceso);
  show(news);
}

async function listen() {
  const answer = await ask('/v1/eventos', { headers: last ? { 'Last-Event-ID': last } : {} });
  const reader = answer.body.pipeThrough(new TextDecoderStream()).getReader();
  at('conexion').textContent = 'Conectada';
  let waiting = '';
  for (;;) {
    const { value, done } = await reader.read();
    if (done) return;
    const blocks = (waiting + value).split('\n\n');
    waiting = blocks.pop();
    blocks.forEach(read);
    if (blocks.length) await printers();
  }
}

async function run() {
  for (;;) {
    try {
      await printers();
      await listen();
      at('conexion').textContent = 'Se cortó; vuelvo a conectar…';
    } catch (error) {
      at('conexion').textContent = error.message;
    }
    await pause(PAUSE);
  }
}

at('llave').addEventListener('submit', (event) => {
  event.preventDefault();
  key = at('clave').value;
  sessionStorage.setItem('clave', key);
});
run();
