import { playScenarios } from "./scenarios.mjs";

playScenarios("chromium");
