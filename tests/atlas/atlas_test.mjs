// node --test atlas_test.mjs
//
// Drives the atlas in headless Chromium and holds it against what the library says. The environment names the site's
// folder (ATLAS_SITE), the JSON of atlas_expectations (ATLAS_EXPECTATIONS) and the browser (CHROMIUM).

import assert from "node:assert/strict";
import fs from "node:fs";
import path from "node:path";
import { after, before, test } from "node:test";
import { pathToFileURL } from "node:url";
import { chromium } from "playwright-core";

const site = path.resolve(process.env.ATLAS_SITE);
const expectations = JSON.parse(fs.readFileSync(process.env.ATLAS_EXPECTATIONS, "utf8"));
const labels = Object.keys(expectations);
const address = (file) => pathToFileURL(path.join(site, file)).href;

let browser;
const faults = [];

async function openPage(options = {}) {
  const page = await (await browser.newContext(options)).newPage();
  page.on("console", (message) => { if (message.type() === "error") faults.push(`${page.url()}: ${message.text()}`); });
  page.on("pageerror", (error) => faults.push(`${page.url()}: ${error}`));
  page.on("requestfailed", (request) => faults.push(`${request.url()}: ${request.failure().errorText}`));
  page.on("request", (request) => { if (!/^(file|data):/.test(request.url())) faults.push(`fetches ${request.url()}`); });
  return page;
}

before(async () => {
  browser = await chromium.launch({ executablePath: process.env.CHROMIUM, args: ["--no-sandbox"] });
});
after(() => browser?.close());

// What a page shows: badges with their numbers and places in the picture, faces, axes, tables.
function readPage() {
  const badges = (root, key) => [...root.querySelectorAll(`[data-${key}]`)].map((badge) => {
    const { e, f } = badge.transform.baseVal.consolidate().matrix;
    const box = badge.querySelector("circle,rect").getBBox();
    const shown = [...badge.querySelectorAll("tspan")].filter((part) => getComputedStyle(part).display !== "none");
    return {
      number: Number(badge.dataset[key]), x: e, y: f, half: box.width / 2, isRound: key === "node",
      text: shown.map((part) => part.textContent).join(), isHidden: badge.classList.contains("hidden"),
    };
  });
  const figure = (name) => document.querySelector(`figure.${name}`);
  const pictures = [...document.querySelectorAll("figure svg")];
  return {
    nodes: badges(figure("nodes"), "node"),
    sides: [...badges(figure("nodes"), "face"), ...badges(figure("nodes"), "edge")],
    points: badges(figure("points"), "point"),
    faces: [...document.querySelectorAll("figure.face")].map((face) => ({
      number: Number(face.dataset.face), badges: badges(face, "node"),
      order: [...face.querySelectorAll("[data-order]")].sort((a, b) => a.dataset.order - b.dataset.order)
        .map((node) => Number(node.dataset.node)),
    })),
    axes: [...figure("nodes").querySelectorAll("path.coordinate:not(.head)")].map((axis) => {
      const [x0, y0, x1, y1] = axis.getAttribute("d").match(/-?[\d.]+/g).map(Number);
      return [x1 - x0, y1 - y0];
    }),
    unnamed: pictures.filter((svg) => !svg.querySelector("title")?.textContent || !svg.querySelector("desc")?.textContent).length,
    tables: Object.fromEntries([...document.querySelectorAll(".table")].map((table) =>
      [table.querySelector("h4").textContent, table.querySelector("pre").innerText])),
  };
}

// Least squares: the coefficients with which `basis` gives `values`; a little damping where it has more than enough.
function fit(basis, values) {
  const n = basis[0].length;
  const rows = Array.from({ length: n }, (_, i) => [
    ...Array.from({ length: n }, (_, j) => basis.reduce((sum, row) => sum + row[i] * row[j], i === j ? 1e-9 : 0)),
    basis.reduce((sum, row, k) => sum + row[i] * values[k], 0)]);
  for (let i = 0; i < n; ++i)
    for (let j = 0; j < n; ++j) {
      if (j === i) continue;
      const factor = rows[j][i] / rows[i][i];
      for (let k = i; k <= n; ++k) rows[j][k] -= factor * rows[i][k];
    }
  return rows.map((row, i) => row[n] / row[i]);
}
const dot = (a, b) => a.reduce((sum, value, i) => sum + value * b[i], 0);

// A picture is a parallel projection: pixels are linear in the isoparametric coordinates. Where an element is bent
// around an axis they are, at its three rows of nodes, of second order in the coordinate that runs around.
function basisOf(element) {
  if (!element.cylindrical)
    return (iso) => [1, ...iso.slice(0, element.dimensions)];
  return element.dimensions === 2 ? ([g, h]) => [1, g, h, h * h] : ([g, h, r]) => [1, g, h, r, r * r, g * r, g * r * r];
}

function checkPlaces(element, page) {
  const basis = basisOf(element);
  const check = (badges, locations, map, tolerance) => badges.forEach((badge, i) => {
    const expected = map.map((row) => dot(row, basis(locations[i % locations.length])));
    const off = Math.hypot(badge.x - expected[0], badge.y - expected[1]);
    assert.ok(off < tolerance, `number ${badge.number} stands ${off} pixels from its place`);
  });
  const mapOf = (badges, locations) =>
    ["x", "y"].map((axis) => fit(badges.map((_, i) => basis(locations[i])), badges.map((badge) => badge[axis])));
  const perPlane = element.nodeLocations.length, pointsPerPlane = element.pointLocations.length;
  for (let plane = 0; plane < element.planes; ++plane) {
    const badges = page.nodes.slice(plane * perPlane, (plane + 1) * perPlane);
    const map = mapOf(badges, element.nodeLocations);
    check(badges, element.nodeLocations, map, 0.3);
    if (element.planes === 1)
      check(page.points, element.pointLocations, map, element.cylindrical ? 6 : 0.3);
    if (element.planes === 1 && !element.cylindrical && perPlane > 1)
      page.axes.forEach(([x, y], coordinate) => {
        const along = map.map((row) => row[coordinate + 1]);
        const cosine = (x * along[0] + y * along[1]) / Math.hypot(x, y) / Math.hypot(...along);
        assert.ok(cosine > 0.995, `axis ${"ghr"[coordinate]} points elsewhere`);
      });
    if (element.dimensions === 3 && !element.cylindrical)
      checkSolid(element, page, map);
  }
  for (let plane = 0; plane < element.pointPlanes && element.pointPlanes > 1; ++plane) {
    const badges = page.points.slice(plane * pointsPerPlane, (plane + 1) * pointsPerPlane);
    check(badges, element.pointLocations, mapOf(badges, element.pointLocations), 0.3);
  }
}

// A solid is convex: a node is seen when it lies on a face that looks at the eye. The number of a face stands at the
// face's centre, or off it along the outward normal.
function checkSolid(element, page, map) {
  const cross = (a, b) => [a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]];
  const minus = (a, b) => a.map((value, i) => value - b[i]);
  const eye = cross(map[0].slice(1), map[1].slice(1).map((value) => -value));
  const faces = element.faces.map((nodes) => {
    const [a, b, c] = nodes.map((node) => element.nodeLocations[node]);
    const normal = cross(minus(b, a), minus(c, a));
    return { normal, level: dot(normal, a), looksAtEye: dot(normal, eye) > 0 };
  });
  for (const node of page.nodes) {
    const isSeen = faces.some((face) =>
      face.looksAtEye && Math.abs(dot(face.normal, element.nodeLocations[node.number]) - face.level) < 1e-5);
    assert.equal(node.isHidden, !isSeen, `node ${node.number}`);
  }
  for (const side of page.sides) {
    const centre = element.faceCentres[side.number];
    const [x, y] = [side.x, side.y].map((value, i) => value - dot(map[i], [1, ...centre]));
    const [outX, outY] = map.map((row) => dot(row.slice(1), faces[side.number].normal));
    const [aside, along] = [x * outY - y * outX, x * outX + y * outY].map((way) => way / Math.hypot(outX, outY));
    assert.ok(Math.abs(aside) < 0.5 && along > -0.5, `face ${side.number} is off its normal: ${aside}, ${along}`);
    assert.equal(side.isHidden, !faces[side.number].looksAtEye);
  }
}

function checkNumbers(badges, count) {
  assert.deepEqual(badges.map((badge) => badge.number).sort((a, b) => a - b), [...Array(count).keys()]);
  for (const badge of badges)
    assert.equal(badge.text, String(badge.number));
  badges.sort((a, b) => a.number - b.number);
}

function checkApart(badges) {
  badges.forEach((a, i) => badges.slice(0, i).forEach((b) => {
    const x = Math.abs(a.x - b.x), y = Math.abs(a.y - b.y);
    const apart = a.isRound && b.isRound ? Math.hypot(x, y) : Math.max(x, y);
    assert.ok(apart >= a.half + b.half, `${a.number} and ${b.number} overlap`);
  }));
}

function checkTable(text, expected) {
  const rows = text.trimEnd().split("\n").slice(1).map((line) => line.trim().split(/\s+/).map(Number));
  assert.deepEqual(rows.map((row) => row[0]), expected.map((_, i) => i));
  assert.deepEqual(rows.map((row) => row.slice(1).map(Math.fround)), expected.map((row) => row.map(Math.fround)));
}

function checkElement(element, page) {
  const isPlaced = element.planes === 1;
  checkNumbers(page.nodes, isPlaced ? element.nodeLocations.length : element.nodes);
  checkNumbers(page.points, isPlaced ? element.pointLocations.length : element.points);
  checkPlaces(element, page);
  checkApart([...page.nodes, ...page.sides]);
  checkApart(page.points);
  if (element.dimensions > 1) {
    assert.deepEqual(page.faces.map((face) => face.order), element.faces);
    page.faces.forEach((face) => checkApart(face.badges));
  }
  if (element.dimensions === 3)
    assert.deepEqual(page.sides.map((side) => side.number).sort(), element.faces.map((_, i) => i));
  const coordinates = (rows) => rows.map((row) => row.slice(0, element.dimensions));
  checkTable(page.tables["Nodes"], coordinates(element.nodeLocations));
  checkTable(page.tables["Integration points"], coordinates(element.pointLocations));
  checkTable(page.tables["From integration points to nodes"], element.nodeWeights);
  checkTable(page.tables["From integration points to faces"], element.faceWeights);
  assert.equal(page.unnamed, 0, "pictures without title or description");
}

// The page of a label, by the file that its address leads to.
function targetOf(label) {
  const [, target] = /url=\.\.\/([^"#]+)#/.exec(fs.readFileSync(path.join(site, "label", `${label}.html`), "utf8"));
  return target;
}

test("a label that is typed is opened by Enter", async () => {
  const page = await openPage();
  await page.goto(address("index.html"));
  await page.getByRole("searchbox").fill("c3d20rh");
  await page.getByRole("searchbox").press("Enter");
  await page.waitForURL("**/element/C3D20R.html#C3D20RH");
  assert.equal(await page.getByRole("heading", { level: 1 }).innerText(), "C3D20RH");
  assert.equal(await page.evaluate(() => scrollY), 0);
});

test("each picture, found by the label that is typed, has its numbers where the library has them", async () => {
  const lastOfPicture = new Map(labels.map((label) => [targetOf(label), label]));
  assert.equal(lastOfPicture.size, fs.readdirSync(path.join(site, "element")).length);
  const start = await openPage(), page = await openPage();
  await start.goto(address("index.html"));
  for (const [target, label] of lastOfPicture) {
    await start.getByRole("searchbox").fill(label.toLowerCase());
    const href = await start.locator("#match").getAttribute("href");
    assert.ok(href.endsWith(`${target}#${label}`), `${label} leads to ${href}`);
    await page.goto(href, { waitUntil: "domcontentloaded" });
    const shown = await page.evaluate(readPage);
    assert.doesNotThrow(() => checkElement(expectations[label], shown), `${label} at ${target}`);
  }
});

test("labels on one page have the same tables", () => {
  const first = new Map();
  for (const label of labels) {
    const target = targetOf(label);
    if (!first.has(target)) first.set(target, label);
    assert.deepEqual(expectations[label], expectations[first.get(target)], label);
  }
});

test("the search finds the labels with a text and with counts", async () => {
  const page = await openPage();
  await page.goto(address("index.html"));
  const shown = () => page.locator(".card li:visible").allTextContents();
  const expected = (holds) => labels.filter((label) => holds(label, expectations[label])).sort();
  assert.deepEqual((await shown()).sort(), expected(() => true));
  await page.getByRole("searchbox").fill("3d8r");
  assert.deepEqual((await shown()).sort(), expected((label) => label.includes("3D8R")));
  await page.getByRole("searchbox").fill("");
  await page.locator("select[name=nodes]").selectOption("12");
  await page.locator("select[name=points]").selectOption("6");
  assert.deepEqual((await shown()).sort(), expected((_, element) => element.nodes === 12 && element.points === 6));
  await page.getByRole("button", { name: "Show all" }).click();
  await page.getByText("Flags").click();
  await page.getByLabel("cylindrical").check();
  await page.getByLabel("Family").selectOption("Prisms");
  const prism = (element) => element.dimensions === 3 && element.faces.length === 5 && element.faces[0].length % 3 === 0;
  assert.deepEqual((await shown()).sort(), expected((_, element) => element.cylindrical && prism(element)));
  await page.getByRole("searchbox").fill("NOSUCH");
  assert.equal(await page.locator("#found").textContent(), "No label");
});

test("numbers count from 1 at a switch, and go on doing so on the next page", async () => {
  const page = await openPage();
  await page.goto(address("element/C3D20R.html"));
  await page.getByLabel("1", { exact: true }).check();
  await page.goto(address("element/C3D15.html"));
  const shown = await page.evaluate(readPage);
  const texts = [...shown.nodes, ...shown.points, ...shown.faces.flatMap((face) => face.badges)];
  assert.ok(texts.length > 15);
  texts.forEach((badge) => assert.equal(badge.text, String(badge.number + 1)));
  assert.match(shown.tables["Nodes of the faces"], /^ +1 +1 +3 +2 /m);
});

test("without script a label leads to its page, and the switch works", async () => {
  const page = await openPage({ javaScriptEnabled: false });
  await page.goto(address("index.html"));
  assert.equal(await page.getByRole("searchbox").isVisible(), false);
  await page.getByRole("link", { name: "S8R", exact: true }).click();
  assert.match(page.url(), /S8R\.html#S8R$/);
  const first = page.locator("figure.nodes [data-node='0'] tspan:visible");
  assert.equal(await first.textContent(), "0");
  await page.getByLabel("1", { exact: true }).check();
  assert.equal(await first.textContent(), "1");
  await page.goto(address("label/C3D20RHT.html"));
  await page.waitForURL("**/element/C3D20R.html#C3D20RHT");
  assert.equal(await page.getByRole("heading", { level: 1 }).innerText(), "C3D20RHT");
});

test("nothing is wider than a small screen", async () => {
  const page = await openPage({ viewport: { width: 360, height: 640 } });
  for (const file of ["index.html", "element/C3D27.html", "element/CAXA84.html", "element/GK3D12M.html"]) {
    await page.goto(address(file));
    assert.equal(await page.evaluate(() => document.scrollingElement.scrollWidth), 360, file);
  }
});

test("no link is dead", () => {
  const files = fs.readdirSync(site, { recursive: true }).filter((file) => file.endsWith(".html"));
  const texts = new Map(files.map((file) => [path.join(site, file), fs.readFileSync(path.join(site, file), "utf8")]));
  assert.ok(labels.every((label) => texts.has(path.join(site, "label", `${label}.html`))));
  const anchors = new Map([...texts].map(([file, text]) => [file, new Set([...text.matchAll(/ id="([^"]+)"/g)].map((m) => m[1]))]));
  for (const [file, text] of texts) {
    const ids = [...text.matchAll(/ id="([^"]+)"/g)];
    assert.equal(ids.length, anchors.get(file).size, `an id stands twice in ${file}`);
    for (const [, link] of text.matchAll(/(?:href|src|url)="?=?([^"]+)"/g)) {
      if (link.startsWith("data:")) continue;
      const [name, anchor] = link.split("#");
      const target = name ? path.resolve(path.dirname(file), name) : file;
      assert.ok(fs.existsSync(target), `${file} links to ${link}`);
      assert.ok(!anchor || anchors.get(target).has(anchor), `${file} links to ${link}`);
    }
  }
});

test("no page reports an error or fetches anything", () => assert.deepEqual(faults, []));
