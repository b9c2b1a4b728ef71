import { playScenarios } from "./scenarios.mjs";

playScenarios("firefox");
