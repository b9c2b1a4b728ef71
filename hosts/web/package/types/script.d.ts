// tabulon.js, for `<script src>`: it defines the element and exports nothing.
import "./tabulon.js";
