"use strict";

// The numbers' base stays as chosen from page to page. Where the browser keeps nothing, each page begins at 0.
function rememberBase() {
  const fromOne = document.getElementById("from1");
  try {
    fromOne.checked = localStorage.getItem("atlas-base") === "1";
    for (const choice of document.getElementsByName("base"))
      choice.addEventListener("change", () => localStorage.setItem("atlas-base", fromOne.checked ? "1" : "0"));
  } catch {
    fromOne.checked = false;
  }
}

// A button beside each table that copies it as it is shown.
function addCopyButtons() {
  for (const table of document.querySelectorAll(".table")) {
    const button = document.createElement("button");
    button.type = "button";
    button.className = "copy";
    button.textContent = "Copy";
    button.addEventListener("click", async () => {
      const text = table.querySelector("pre").innerText;
      try {
        await navigator.clipboard.writeText(text);
        button.textContent = "Copied";
      } catch {
        getSelection().selectAllChildren(table.querySelector("pre"));
        button.textContent = "Selected";
      }
      setTimeout(() => { button.textContent = "Copy"; }, 1500);
    });
    table.append(button);
  }
}

// Hides what the search does not ask for: labels, then pictures without a label, then families without a picture.
function startSearch(form) {
  const families = [...document.querySelectorAll(".family")];
  const cards = [...document.querySelectorAll(".card")].map((card) => ({
    element: card,
    labels: [...card.querySelectorAll("li")].map((item) => ({
      element: item,
      link: item.firstElementChild,
      name: item.textContent,
      flags: new Set(item.dataset.flags.split(" ")),
    })),
  }));

  function search() {
    const wanted = new FormData(form);
    const name = wanted.get("label").trim().toUpperCase();
    const flags = wanted.getAll("flag");
    const counts = ["family", "nodes", "points", "space"].filter((key) => wanted.get(key));
    let numLabels = 0, numCards = 0;
    for (const card of cards) {
      const fits = counts.every((key) => card.element.dataset[key] === wanted.get(key));
      let shown = 0;
      for (const label of card.labels) {
        const isWanted = fits && label.name.includes(name) && flags.every((flag) => label.flags.has(flag));
        label.element.hidden = !isWanted;
        shown += isWanted;
      }
      card.element.hidden = shown === 0;
      numLabels += shown;
      numCards += shown > 0;
    }
    for (const family of families)
      family.hidden = !family.querySelector(".card:not([hidden])");
    document.getElementById("found").value =
      numLabels === 0 ? "No label" : `${numLabels} label${numLabels > 1 ? "s" : ""} in ${numCards} picture${numCards > 1 ? "s" : ""}`;
    showMatch(name);
  }

  // The label that was typed in full, or the only one left: Enter opens it.
  const match = document.createElement("a");
  match.id = "match";
  document.getElementById("found").after(match);
  function showMatch(name) {
    const shown = cards.flatMap((card) => card.labels).filter((label) => !label.element.hidden);
    const label = shown.find((one) => one.name === name) ?? (shown.length === 1 ? shown[0] : undefined);
    match.hidden = !label;
    match.textContent = label ? `Open ${label.name}` : "";
    if (label)
      match.href = label.link.href;
    else
      match.removeAttribute("href");
  }

  form.addEventListener("input", search);
  form.addEventListener("reset", () => setTimeout(search));
  form.addEventListener("submit", (event) => {
    event.preventDefault();
    if (match.href)
      location.href = match.href;
  });
  form.hidden = false;
  search();
}

rememberBase();
addCopyButtons();
const form = document.getElementById("search");
if (form)
  startSearch(form);
