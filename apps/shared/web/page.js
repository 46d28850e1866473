/* SPDX-License-Identifier: MIT */
"use strict";
const at = id => document.getElementById(id);
const texts = JSON.parse(at("texts").textContent);
const language = navigator.languages.map(name => name.slice(0, 2).toLowerCase()).find(name => texts.tap[name]) || "en";
const say = id => texts[id][language];
let socket = null, beat = null, state = null, lit = null, litTime = -1e9;

function connect() {
  socket = new WebSocket("ws://" + location.host + "/" + location.search);
  socket.onmessage = event => {
    const message = JSON.parse(event.data);
    if (message.type === "beat") takeBeat(message);
    else if (message.type === "state") takeState(message);
    else if (message.type === "choices") takeChoices(message);
  };
  socket.onclose = () => { beat = null; show(say("lost")); setTimeout(connect, 1000); };
}

function show(words) { at("words").textContent = words; }

function flash(time) {
  lit = beat;
  litTime = time;
  [...at("beats").children].forEach((dot, i) => dot.classList.toggle("on", i + 1 === lit.beatInBar));
  at("light").classList.toggle("one", lit.beatInBar === 1);
}

function takeBeat(message) {
  /* The way was shorter for this message than for the one before. */
  if (beat && message.beat === beat.beat + 1) flash(performance.now());
  beat = {...message, due: performance.now() + message.ms};
  at("bpm").textContent = message.bpm.toFixed(1);
  at("confidence").value = message.confidence;
}

function takeState(message) {
  state = message;
  if (!state.isRunning) { beat = null; at("bpm").textContent = "–"; at("confidence").value = 0; }
  show(say(state.isPlaying ? "plays" : "silent") + ", " + say(state.isRunning ? state.charge : "waiting"));
  at("hold").classList.toggle("on", state.charge === "held");
  at("level").value = state.level;
  const dots = at("beats");
  while (dots.children.length > state.beatsPerBar) dots.lastChild.remove();
  while (dots.children.length < state.beatsPerBar) dots.append(document.createElement("i"));
  at("outputs").replaceChildren(...state.outputs.map(output => {
    const item = document.createElement("li");
    item.className = output.isOpen ? "open" : "";
    item.textContent = output.name + (output.state ? ": " + output.state : "");
    return item;
  }));
}

/* What is chosen stands there even if it is not offered any more. */
function fill(select, offers, chosen) {
  const isOffered = offers.some(offer => offer.name === chosen);
  const gone = {name: chosen, words: chosen + " (" + say("absent") + ")"};
  select.replaceChildren(...(isOffered ? offers : [gone, ...offers]).map(offer => new Option(offer.words, offer.name)));
  select.value = chosen;
}

function describe(input) {
  const words = input.description || input.name;
  if (input.name === "default") return say("default") + (input.description ? ": " + input.description : "");
  return words + (input.isMonitor ? " (" + say("monitor") + ")" : "");
}

function takeChoices(message) {
  const profiles = message.profiles.map(name => ({name: name, words: name}));
  fill(at("profile"), [{name: "", words: say("automatic")}, ...profiles], message.profile);
  fill(at("input"), message.inputs.map(input => ({name: input.name, words: describe(input)})), message.input);
  at("input").parentNode.hidden = message.inputs.length === 0;
}

/* The beat that was foretold falls due on this machine's own clock; the next one is guessed until it is told. */
function draw(now) {
  if (beat && now >= beat.due) {
    flash(beat.due);
    const bar = state ? state.beatsPerBar : 4;
    beat = {...beat, beat: beat.beat + 1, beatInBar: beat.beatInBar % bar + 1, due: beat.due + 60000 / beat.bpm};
  }
  const light = Math.max(0, 1 - (now - litTime) / 220);
  at("light").style.opacity = light;
  at("flash").classList.toggle("lit", light > 0.4);
  requestAnimationFrame(draw);
}

at("buttons").addEventListener("pointerdown", event => act(event.target));
at("buttons").addEventListener("click", event => { if (event.detail === 0) act(event.target); });
function act(button) { if (button.dataset.do) send(button.dataset.do); }
function send(wish) { if (socket.readyState === WebSocket.OPEN) socket.send(wish); }
for (const id of ["profile", "input"]) at(id).addEventListener("change", () => send(id + " " + at(id).value));

document.documentElement.lang = language;
document.querySelectorAll("[data-text]").forEach(place => { place.textContent = say(place.dataset.text); });
show(say("connecting"));
connect();
requestAnimationFrame(draw);
